/// Forms that exist once, reached by name.
#pragma once

#include "toolkit/form.h"
#include "toolkit/program.h"

#include <memory>

namespace tandrel
{

/// The single instance of a form. The first touch loads it; after an unload the next touch makes a new one, unless the
/// program has ended: then the dead one stays, so that nothing comes back while things are taken down.
template <class F>
class Holder
{
public:
    static F& touch()
    {
        auto& form = instance();
        if (!form || (form->isDead() && !programEnded()))
            form = newForm<F>();
        form->load();
        return *form;
    }
    static bool loaded() { return instance() && instance()->isLoaded(); }
    /// An instance whose end is under way is let go of, so that the next touch makes a new one.
    static void renew()
    {
        if (const auto form = instance(); form && form->isEnding())
            instance().reset();
    }
    /// Does nothing where it isn't loaded.
    static void end()
    {
        if (const auto form = instance(); form && form->isLoaded())
            unload(*form);
    }
    /// Lets go of the instance without a handler; tests start afresh with it.
    static void forget() { instance().reset(); }

private:
    static std::shared_ptr<F>& instance()
    {
        // Never destroyed: where the process ends at once, windows stay as they are.
        static auto& form = *new std::shared_ptr<F>;
        return form;
    }
};

} // namespace tandrel
