/// Message boxes in the program's own frame.
#pragma once

#include "toolkit/backend.h"

#include <QMessageBox>

#include <optional>

namespace tandrel
{

class MessageBox : public QMessageBox
{
public:
    MessageBox(const QString& text, BoxStyle style, const QString& title, const BoxTexts& texts);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    /// A question takes no other answer than its buttons.
    bool question_;
    std::optional<QPoint> drag_;
};

} // namespace tandrel
