/// The window of a form.
#pragma once

#include "toolkit/form.h"
#include "toolkit/qt/wheel_notches.h"

#include <QEventLoop>
#include <QPointer>
#include <QWidget>

#include <optional>

class QHelpEvent;

namespace tandrel
{

/// True if a handler has acted on the press of this button, so that it counts for nothing else.
bool pressIsSpent(Qt::MouseButton button);

/// A press brings its form to the front, unless it had been acted on before it arrived: what came up by it stays there.
void activateByPress(Form& form, Qt::MouseButton button);

/// A frameless window that paints its own frame and tells its form what the user does.
class FormWidget : public QWidget
{
public:
    explicit FormWidget(Form& form);
    /// The form is gone; the widget lives on until its present event is done.
    void forget() { form_ = nullptr; }
    /// Null once it is gone.
    const Form* form() const { return form_; }
    /// Where the controls of the form lie.
    QPoint origin() const;
    /// Puts the windows' geometry to `rect`, without a report to the form.
    void place(const PixelRect& rect);
    /// The window follows the pointer until the left button is let go; for where no window manager does that.
    void dragByHand();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    /// True where the form has taken it.
    bool reportKey(int key);
    bool reportShortcut(const QKeyEvent& event);
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void reportPlace();
    MouseEvent translated(QMouseEvent* event, int buttons) const;
    bool isOnCloseBox(const QPointF& at) const;
    void hoverCloseBox(bool on);
    /// The tip of a text that leaves the mouse to what lies below it.
    bool showTipOfText(const QHelpEvent& event);

    Form* form_;
    bool placing_ = false;
    std::optional<QPoint> bandDrag_;
    /// The button that closes a dialog is under the pointer, and pressed.
    bool closeHovered_ = false;
    bool closePressed_ = false;
    WheelNotches notches_;
};

class QtFormView : public FormView
{
public:
    explicit QtFormView(Form& form);
    ~QtFormView() override;
    std::unique_ptr<ControlView> addControl(Control& control) override;
    void place(const PixelRect& rect) override;
    void show() override;
    void setModal(bool on) override;
    void hide() override;
    void raise() override;
    void activate() override;
    void repaint() override;
    void minimise() override;
    void restore() override;
    void captionChanged() override;
    void frameChanged() override;
    void setFullScreen(bool on) override;
    void setTransientFor(Form* owner) override;
    void setOpacity(int alpha) override;
    void setRegion(const Region& region, double scale) override;
    double pixelRatio() const override;
    Bitmap snapshot() override;
    void startDrag() override;
    void setTopMost(bool on) override;
    void setToolWindow(bool on) override;
    void showSystemMenu(PixelPoint at) override;
    WindowHandle handle() const override;
    void waitModal() override;

private:
    void waitForScreen();

    Form& form_;
    QPointer<FormWidget> widget_;
    QPointer<QWidget> wayBack_;
    QPointer<QObject> activationWaits_;
    /// Whoever waits for the end of the form, the last one on top.
    std::vector<QEventLoop*> waiting_;
    void endWaiting();
};

} // namespace tandrel
