#include "desktop/wheel.h"

#include "toolkit/controls.h"

namespace tandrel
{

namespace
{

Control* controlOfHandle(WindowHandle hWnd)
{
    for (const auto& form : openForms())
        for (Control* control : form->controls())
            if (control->hWnd() == hWnd)
                return control;
    return nullptr;
}

/// The form whose window, or whose control's window, this is.
Form* owner(WindowHandle hWnd)
{
    if (Form* form = FormOfHandle(hWnd))
        return form;
    const Control* control = hWnd == 0 ? nullptr : controlOfHandle(hWnd);
    return control ? &control->form() : nullptr;
}

bool isOver(const PixelRect& rect, Long x, Long y)
{
    return x >= rect.left && x <= rect.right && y >= rect.top && y <= rect.bottom;
}

void call(Form& form, const WheelTurn& turn)
{
    form.run([&] { form.MouseWheel(turn.keys, turn.rotation, turn.x, turn.y); });
}

/// False where the turn is used up.
bool turnOverControl(const Control& control, const WheelTurn& turn)
{
    Form& parent = control.form();
    if (!isOver(parent.pixelRect(), turn.x, turn.y) || isOver(control.screenRect(), turn.x, turn.y))
        return true;
    const auto* box = dynamic_cast<const ComboBox*>(&control);
    if (!box || !box->isDropped())
        call(parent, turn);
    return false;
}

} // namespace

Form* FormOfHandle(WindowHandle hWnd)
{
    if (hWnd == 0)
        return nullptr;
    for (const auto& form : openForms())
        if (form->hWnd() == hWnd)
            return form.get();
    return nullptr;
}

bool IsPointOverWindow(WindowHandle hWnd, Long x, Long y)
{
    if (const Form* form = FormOfHandle(hWnd))
        return isOver(form->pixelRect(), x, y);
    const Control* control = hWnd == 0 ? nullptr : controlOfHandle(hWnd);
    return control && isOver(control->screenRect(), x, y);
}

void WheelHookInstall(WindowHandle hWnd)
{
    if (Form* form = owner(hWnd))
        form->WheelProcedure = [hWnd](const WheelTurn& turn) { WheelWindowProc(hWnd, turn); };
}

void WheelHookRemove(WindowHandle hWnd)
{
    if (Form* form = owner(hWnd))
        form->WheelProcedure = nullptr;
}

bool hasWheelHook(WindowHandle hWnd)
{
    const Form* form = owner(hWnd);
    return form && form->WheelProcedure;
}

bool WheelWindowProc(WindowHandle hWnd, const WheelTurn& turn)
{
    if (Form* form = FormOfHandle(hWnd)) {
        if (IsPointOverWindow(hWnd, turn.x, turn.y))
            call(*form, turn);
        return true;
    }
    const Control* control = hWnd == 0 ? nullptr : controlOfHandle(hWnd);
    return !control || turnOverControl(*control, turn);
}

} // namespace tandrel
