/// The first form: finds the monitors and the language, fades in, and brings up the console.
#pragma once

#include "toolkit/form.h"

namespace tandrel
{

class frmStart : public Form
{
public:
    frmStart();

    Image imgBody{*this, "imgBody", {0, 0, 9000, 3300}, "splash"};
    Label Label1{*this, "Label1", {540, 420, 4500, 780}, "Tandrel"};
    Label Label2{*this, "Label2", {540, 1140, 2400, 780}, "Player"};
    Label lblPRO{*this, "lblPRO", {2625, 1410, 900, 300}, "PRO"};

    /// Loads it and, where the command line is empty, shows it, which brings up the console.
    void start();

protected:
    void onLoad() override;
    void onActivate() override;

private:
    void askLanguage();
};

} // namespace tandrel
