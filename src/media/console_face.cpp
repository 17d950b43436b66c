#include "media/console_face.h"

namespace tandrel
{

namespace
{

class NoConsole : public ConsoleFace
{
public:
    void showSpeed(const Text&) override {}
    Long volumeSlider() override { return 0; }
};

NoConsole none;
ConsoleFace* installed = &none;

} // namespace

ConsoleFace& consoleFace() { return *installed; }

void installConsoleFace(ConsoleFace* face) { installed = face ? face : &none; }

} // namespace tandrel
