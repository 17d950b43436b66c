/// The first form: finds the monitors and the language, fades in, and brings up the console.
#pragma once

#include "toolkit/form.h"

namespace tandrel
{

class frmStart : public Form
{
public:
    frmStart();

    Label lblTitle{*this, "lblTitle", {0, 600, 6000, 600}, "Tandrel Player PRO"};

    /// Loads it and, where the command line is empty, shows it, which brings up the console.
    void start();

protected:
    void onLoad() override;
    void onActivate() override;

private:
    void askLanguage();
    void fadeIn();
};

} // namespace tandrel
