/// The list of all keys and what they do.
#pragma once

#include "toolkit/form.h"

namespace tandrel
{

class frmKeys : public Form
{
public:
    frmKeys();

    /// Where the keys are changed, and what can't be.
    Label lblFile{*this, "lblFile", {330, 7000, 11400, 900}};
    CommandButton cmdOK{*this, "cmdOK", {12000, 7000, 1440, 480}, "&Close"};

    struct Line {
        Text keys;
        Text says;
    };
    /// What is listed, in order. The commands that bring a video forward share a line.
    static std::vector<Line> lines();

protected:
    void onLoad() override;

private:
    /// `keys` is where its keys stand.
    void addLine(const Line& line, const TwipsRect& keys);

    std::vector<std::unique_ptr<Label>> labels_;
};

} // namespace tandrel
