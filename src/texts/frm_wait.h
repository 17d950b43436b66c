/// The notice that stands while many videos are opened or arranged.
#pragma once

#include "toolkit/form.h"

namespace tandrel
{

class frmWait : public Form
{
public:
    frmWait();

    Label lblClose{*this, "lblClose", {300, 180, 2700, 330}, "Please Wait ..."};
    Label lblCount{*this, "lblCount", {3000, 180, 1200, 330}};
    ProgressBar barDone{*this, "barDone", {300, 600, 3900, 120}};

    /// So many videos are done, of so many. Seen with the next `Refresh`.
    void showProgress(Long done, Long whole);
    /// Shows at once that the program lives, while something takes its time.
    void pulse();

protected:
    void onLoad() override;
};

} // namespace tandrel
