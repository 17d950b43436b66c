#include "toolkit/backend.h"

namespace tandrel
{

BoxAnswer Backend::messageBox(const Text&, BoxStyle, const Text&) { return BoxAnswer::Ok; }

Menu* Backend::popUp(Menu&) { return nullptr; }

void Backend::later(int, std::function<void()> task) { task(); }

void Backend::animate(int steps, int, const std::function<void(int step)>& draw)
{
    for (int step = 0; step < steps; ++step)
        draw(step);
}

namespace
{
Backend unseen;
Backend* installed = &unseen;
} // namespace

Backend& backend() { return *installed; }

void installBackend(Backend* backend) { installed = backend ? backend : &unseen; }

} // namespace tandrel
