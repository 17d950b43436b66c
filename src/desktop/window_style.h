/// A window's frame, read and changed at run time.
#pragma once

#include "toolkit/form.h"
#include "toolkit/property.h"

namespace tandrel
{

class clsStyle
{
public:
    clsStyle() = default;
    clsStyle(const clsStyle&) = delete;

    /// The form that it works on. Without one, reads give false and changes nothing.
    Form* Client = nullptr;

    bool titlebar() const { return Client && Client->hasTitleBar(); }
    void setTitlebar(bool on)
    {
        if (Client)
            Client->setTitleBar(on);
    }
    bool border() const;
    void setBorder(bool on)
    {
        if (Client)
            Client->setBorder(on);
    }

    Property<clsStyle, bool, &clsStyle::titlebar, &clsStyle::setTitlebar> Titlebar{*this};
    /// Reading it sets the title bar to the border's state and always gives false.
    Property<clsStyle, bool, &clsStyle::border, &clsStyle::setBorder> Border{*this};
};

} // namespace tandrel
