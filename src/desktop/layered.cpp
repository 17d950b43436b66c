#include "desktop/layered.h"

#include "desktop/region.h"

namespace tandrel
{

namespace
{
constexpr int kOpaque = 255;
constexpr int kStep = 5;
} // namespace

void SetLayered(Form& form, Long key, Long alpha, int flag)
{
    form.setWindowWord(style::kExtendedWord, form.windowWord(style::kExtendedWord) | style::kLayered);
    if (flag == layered::kColourKey)
        form.setRegion(CreaRegione(form.snapshot(), key));
    else
        form.setOpacity(alpha);
}

void FadeWindow(Form& form, Long alpha, Long key)
{
    if (key >= 0)
        SetLayered(form, key, kOpaque, layered::kColourKey);
    else
        SetLayered(form, 0, std::min<Long>(alpha, kOpaque), layered::kAlpha);
}

void fadeIn(Form& form)
{
    FadeWindow(form, 0);
    form.Visible = true;
    for (int alpha = 1; alpha <= kOpaque; alpha += kStep) {
        FadeWindow(form, alpha);
        form.Refresh();
    }
    FadeWindow(form, kOpaque);
}

} // namespace tandrel
