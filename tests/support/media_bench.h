/// What the tests of the command strings share: the names of two devices and a console's face.
#pragma once

#include "fake_services.h"

#include "media/console_face.h"

namespace tandrel::test
{

inline const Text kAlias = "\"/films/a.avi\"";
inline const Text kOther = "\"/films/b.avi\"";

/// Keeps the speeds it shows and gives a level, as the console does.
class Face : public ConsoleFace
{
public:
    void showSpeed(const Text& caption) override { shown.push_back(caption); }
    Long volumeSlider() override { return level; }
    std::vector<Text> shown;
    int level = 70;
};

} // namespace tandrel::test
