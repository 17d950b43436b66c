#include "toolkit/program.h"

#include "toolkit/backend.h"
#include "toolkit/form.h"

namespace tandrel
{

namespace
{
bool ended = false;
}

void endProgram()
{
    ended = true;
    backend().quit();
}

bool programEnded() { return ended; }

void beginProgram() { ended = false; }

void discardForms()
{
    ended = true;
    for (const auto& form : openForms())
        form->discard();
}

} // namespace tandrel
