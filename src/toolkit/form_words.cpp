// The style words of a form's window, and what of its frame follows from them.

#include "toolkit/form.h"

namespace tandrel
{

Long Form::windowWord(int index) const { return index == style::kExtendedWord ? extendedStyle_ : style_; }

void Form::setWindowWord(int index, Long word)
{
    if (index == style::kExtendedWord) {
        const bool tool = (word & style::kToolWindow) != 0;
        if (view_ && tool != ((extendedStyle_ & style::kToolWindow) != 0))
            view_->setToolWindow(tool);
        extendedStyle_ = (word & ~style::kTopMost) | (extendedStyle_ & style::kTopMost);
        return;
    }
    // The room for the controls has changed: the next size counts as a new one, even if it is the old.
    if (((word ^ style_) & style::kTitlebar) != 0)
        resized_ = {-1, -1, -1, -1};
    style_ = word;
}

void Form::redrawFrame()
{
    if (view_)
        view_->frameChanged();
}

void Form::setTitleBar(bool on)
{
    setWindowWord(style::kWord, on ? style_ | style::kTitlebar : style_ & ~style::kTitlebar);
    redrawFrame();
}

void Form::setBorder(bool on)
{
    setWindowWord(style::kWord, on ? style_ | style::kSizable : style_ & ~style::kSizable);
    redrawFrame();
}

void Form::setTopMost(bool on)
{
    extendedStyle_ = on ? extendedStyle_ | style::kTopMost : extendedStyle_ & ~style::kTopMost;
    if (view_)
        view_->setTopMost(on);
}

void Form::showSystemMenu(PixelPoint at)
{
    if (view_)
        view_->showSystemMenu(at);
}

} // namespace tandrel
