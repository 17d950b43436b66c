/// The forms on Qt widgets.
#pragma once

#include "toolkit/backend.h"
#include "toolkit/qt/tick_times.h"

#include <QObject>

#include <functional>
#include <map>
#include <memory>
#include <vector>

class QTimer;

namespace tandrel
{

/// Made behind the application object and gone before it. Sets the screen's metrics and the style of all windows.
class QtBackend : public QObject, public Backend
{
public:
    QtBackend();
    ~QtBackend() override;

    std::unique_ptr<FormView> makeView(Form& form) override;
    void timerChanged(Timer& timer) override;
    void timerGone(Timer& timer) override;
    void timerHastened(Timer& timer) override;
    void animate(int steps, int ms, const std::function<void(int step)>& draw) override;
    void mousePointerChanged(Integer shape) override;
    BoxAnswer messageBox(const Text& text, BoxStyle style, const Text& title) override;
    std::vector<Text> chooseFiles(const FileDialog& what) override;
    Menu* popUp(Menu& head) override;
    void withMenusAt(PixelPoint place, const std::function<void()>& task) override;
    Bitmap picture(const Text& name, int width, int height) override;
    void setBoxTexts(const BoxTexts& texts) override { boxTexts_ = texts; }
    const BoxTexts& boxTexts() const { return boxTexts_; }
    void setFileDialogTexts(const FileDialogTexts& texts) override { fileDialogTexts_ = texts; }
    void runPending() override;
    void later(int ms, std::function<void()> task) override;
    void whenIdle(std::function<void()> task) override;
    void quit() override;
    void beep() override;

    /// Closes the box, menu and modal forms that are up, and answers those to come at once, as a close of theirs would:
    /// the program is about to end.
    void endBoxes();
    bool boxesEnded() const { return boxesEnded_; }

    /// While a key presses `control`: what pops up by it stands below it, and not at the pointer.
    class PressedByKey
    {
    public:
        explicit PressedByKey(const QWidget& control);
        explicit PressedByKey(PixelPoint place);
        ~PressedByKey();
        PressedByKey(const PressedByKey&) = delete;
    };

    /// Tells whether the session bus takes callers and says nothing; it is asked on another thread, and may wait.
    /// Without it, or where it says no, the desktop's own dialog for files is used where there is one.
    void setBusCheck(std::function<bool()> busIsSilent) { busIsSilent_ = std::move(busIsSilent); }

    /// How many paintings of windows and controls there were so far: a window at rest costs none.
    long paints() const { return paints_; }
    /// How long the ticks took that the user had to wait for.
    const TickTimes& tickTimes() const { return tickTimes_; }

protected:
    /// Watches the mouse buttons in all windows of the program.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void tick(Timer& timer);
    std::vector<Text> chooseSomewhere(const FileDialog& what);

    std::map<Timer*, std::unique_ptr<QTimer>> timers_;
    BoxTexts boxTexts_;
    FileDialogTexts fileDialogTexts_;
    std::function<bool()> busIsSilent_;
    bool desktopIsSilent_ = false;
    bool pointerSet_ = false;
    bool boxesEnded_ = false;
    long paints_ = 0;
    TickTimes tickTimes_;
};

} // namespace tandrel
