/// A dialog that is no form, in the program's own frame: caption band with a close box, rounded body, edges that
/// resize.
#pragma once

#include <QDialog>

#include <optional>

namespace tandrel
{

/// Before which a dialog belongs: the active form's, else the largest. Null where no form is seen.
QWindow* windowOfActiveForm();

class FramedDialog : public QDialog
{
public:
    explicit FramedDialog(const QString& title);

    /// In the middle of the monitor that the active form is on, of about this size and within the monitor; a window
    /// manager keeps it before that form.
    void placeBefore(const QSize& wanted);

protected:
    /// Holds all controls; the frame lies around it.
    QWidget& body() { return *body_; }

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    /// What a held button does with the window: edges of none move it.
    struct Drag {
        Qt::Edges edges;
        QPoint from;
        QRect place;
    };

    Qt::Edges edgesAt(const QPoint& at) const;
    void hover(const QPoint& at);
    void setCloseBox(bool hovered, bool pressed);

    QWidget* body_;
    std::optional<Drag> drag_;
    bool closeHovered_ = false;
    bool closePressed_ = false;
};

} // namespace tandrel
