/// A window's frame, read and changed at run time.
#pragma once

#include "toolkit/form.h"
#include "toolkit/property.h"

namespace tandrel
{

/// Works on the form `Client`. Without one, reads give false and changes nothing.
class clsStyle : private MouseListener
{
public:
    clsStyle() = default;
    ~clsStyle() override;
    clsStyle(const clsStyle&) = delete;

    bool autoDrag() const { return autoDrag_; }
    void setAutoDrag(bool on) { autoDrag_ = on; }
    bool autoSysMenu() const { return autoSysMenu_; }
    void setAutoSysMenu(bool on) { autoSysMenu_ = on; }
    Form* client() const { return client_; }
    void setClient(Form* form);

    bool controlBox() const { return styleBit(style::kWord, style::kControlBox); }
    void setControlBox(bool on) { setStyleBit(style::kWord, style::kControlBox, on); }
    bool maxButton() const { return styleBit(style::kWord, style::kMaxButton); }
    void setMaxButton(bool on) { setStyleBit(style::kWord, style::kMaxButton, on); }
    bool minButton() const { return styleBit(style::kWord, style::kMinButton); }
    void setMinButton(bool on) { setStyleBit(style::kWord, style::kMinButton, on); }
    bool sizable() const { return styleBit(style::kWord, style::kSizable); }
    void setSizable(bool on) { setStyleBit(style::kWord, style::kSizable, on); }
    bool titlebar() const { return styleBit(style::kWord, style::kTitlebar); }
    void setTitlebar(bool on) { setStyleBit(style::kWord, style::kTitlebar, on); }
    bool border() const;
    void setBorder(bool on) { setStyleBit(style::kWord, style::kSizable, on); }
    bool toolWindow() const { return styleBit(style::kExtendedWord, style::kToolWindow); }
    void setToolWindow(bool on) { setStyleBit(style::kExtendedWord, style::kToolWindow, on); }
    bool topMost() const { return styleBit(style::kExtendedWord, style::kTopMost); }
    void setTopMost(bool on);
    bool whatsThisButton() const { return styleBit(style::kExtendedWord, style::kWhatsThisButton); }
    void setWhatsThisButton(bool on) { setStyleBit(style::kExtendedWord, style::kWhatsThisButton, on); }

    /// The window follows the left button wherever on it that is pressed.
    Property<clsStyle, bool, &clsStyle::autoDrag, &clsStyle::setAutoDrag> AutoDrag{*this};
    /// The right button brings up the window's own menu.
    Property<clsStyle, bool, &clsStyle::autoSysMenu, &clsStyle::setAutoSysMenu> AutoSysMenu{*this};
    /// Its mouse events are heard from here on.
    Property<clsStyle, Form*, &clsStyle::client, &clsStyle::setClient> Client{*this};
    Property<clsStyle, bool, &clsStyle::controlBox, &clsStyle::setControlBox> ControlBox{*this};
    Property<clsStyle, bool, &clsStyle::maxButton, &clsStyle::setMaxButton> MaxButton{*this};
    Property<clsStyle, bool, &clsStyle::minButton, &clsStyle::setMinButton> MinButton{*this};
    Property<clsStyle, bool, &clsStyle::sizable, &clsStyle::setSizable> Sizable{*this};
    Property<clsStyle, bool, &clsStyle::titlebar, &clsStyle::setTitlebar> Titlebar{*this};
    /// The bit of `Sizable`. Reading it sets the title bar to that bit's state and always gives false.
    Property<clsStyle, bool, &clsStyle::border, &clsStyle::setBorder> Border{*this};
    Property<clsStyle, bool, &clsStyle::toolWindow, &clsStyle::setToolWindow> ToolWindow{*this};
    Property<clsStyle, bool, &clsStyle::topMost, &clsStyle::setTopMost> TopMost{*this};
    Property<clsStyle, bool, &clsStyle::whatsThisButton, &clsStyle::setWhatsThisButton> WhatsThisButton{*this};

    /// The window of the client, 0 without one.
    WindowHandle hwnd() const { return client_ ? client_->hWnd() : 0; }
    /// A changed border shows at once; place, size and order stay.
    void pRedraw();
    /// The window's own menu at a pixel of the desktop.
    void ShowSysMenu(Long x, Long y);

private:
    void formMouseDown(const MouseEvent& event) override;
    void formMouseUp(const MouseEvent& event) override;
    bool styleBit(int word, int bit) const;
    /// True if the word has taken the change.
    bool setStyleBit(int word, int bit, bool on);

    bool autoDrag_ = false;
    bool autoSysMenu_ = false;
    Form* client_ = nullptr;
};

} // namespace tandrel
