/// The splash of a plain start.
#pragma once

#include "toolkit/form.h"

namespace tandrel
{

/// Stands for about five seconds and takes `frmStart` with it when it goes.
class frmSplash : public Form
{
public:
    frmSplash();

    Image imgBody{*this, "imgBody", {0, 0, 9000, 3300}, "splash"};
    Label Label1{*this, "Label1", {540, 420, 4500, 780}, "Tandrel"};
    Label Label2{*this, "Label2", {540, 1140, 2400, 780}, "Player"};
    Label lblPRO{*this, "lblPRO", {2625, 1410, 900, 300}, "PRO"};
    Label lblVersion{*this, "lblVersion", {540, 2520, 2400, 300}, "vers."};
    Label lblVers{*this, "lblVers", {0, 2010, 9000, 300}};
    Label lblCopy{*this, "lblCopy", {3960, 2520, 4500, 300}};
    Timer Timer1{*this, "Timer1", 500, true};

protected:
    void onLoad() override;
    void onActivate() override;

private:
    void Timer1_Timer();
    void showVersion();
    void leave();

    Integer ticks_ = 0;
    bool faded_ = false;
};

} // namespace tandrel
