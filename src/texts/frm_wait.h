/// The notice that stands while many videos are opened or arranged.
#pragma once

#include "toolkit/form.h"

namespace tandrel
{

class frmWait : public Form
{
public:
    frmWait();

    Label lblClose{*this, "lblClose", {0, 210, 4500, 480}, "Please Wait ..."};

protected:
    void onLoad() override;
};

} // namespace tandrel
