/// The list of a dialog for files, with what it says where there is nothing to list.
#pragma once

#include <QTreeView>

#include <functional>

namespace tandrel
{

class FileListView : public QTreeView
{
public:
    explicit FileListView(QWidget* parent);

    /// Shown in the middle of a list without rows.
    void setEmptyText(const QString& text);

    /// A double click is over, or Enter was pressed: the button is up, so that nothing below the dialog sees it.
    std::function<void()> chosen;
    std::function<void()> goUp;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QString emptyText_;
    bool choosing_ = false;
};

} // namespace tandrel
