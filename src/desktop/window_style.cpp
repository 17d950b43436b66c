#include "desktop/window_style.h"

#include "platform/services.h"

namespace tandrel
{

clsStyle::~clsStyle() { setClient(nullptr); }

void clsStyle::setClient(Form* form)
{
    if (client_)
        client_->stopListening(*this);
    client_ = form;
    if (client_)
        client_->listen(*this);
}

bool clsStyle::styleBit(int word, int bit) const { return client_ && (client_->windowWord(word) & bit) == bit; }

bool clsStyle::setStyleBit(int word, int bit, bool on)
{
    if (!client_)
        return false;
    const std::int32_t old = client_->windowWord(word);
    client_->setWindowWord(word, on ? old | bit : old & ~bit);
    pRedraw();
    return styleBit(word, bit) == on;
}

bool clsStyle::border() const
{
    if (client_)
        client_->setTitleBar(client_->hasBorder());
    return false;
}

void clsStyle::setTopMost(bool on)
{
    if (client_)
        client_->setTopMost(on);
}

void clsStyle::pRedraw()
{
    if (client_)
        client_->redrawFrame();
}

void clsStyle::ShowSysMenu(Long x, Long y)
{
    if (client_)
        client_->showSystemMenu({x, y});
}

void clsStyle::formMouseDown(const MouseEvent& event)
{
    if (event.button == mouse::kLeft && autoDrag_)
        client_->startDrag();
}

void clsStyle::formMouseUp(const MouseEvent& event)
{
    if (event.button != mouse::kRight || !autoSysMenu_)
        return;
    const PixelPoint at = services().pointer->position();
    ShowSysMenu(at.x, at.y);
}

} // namespace tandrel
