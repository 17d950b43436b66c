#include "toolkit/qt/file_list_view.h"

#include "toolkit/qt/file_model.h"
#include "toolkit/qt/palette.h"
#include "toolkit/qt/style.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <utility>

namespace tandrel
{

namespace
{

constexpr int kSizeWidth = 98;
constexpr int kKindWidth = 80;
constexpr int kDateWidth = 136;
/// Narrower lists leave the lesser columns out.
constexpr int kRoomForDate = 470;
constexpr int kRoomForKind = 330;

} // namespace

FileListView::FileListView(QWidget* parent) : QTreeView(parent)
{
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setSortingEnabled(true);
    setAllColumnsShowFocus(true);
    setSelectionBehavior(SelectRows);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void FileListView::setEmptyText(const QString& text)
{
    emptyText_ = text;
    viewport()->update();
}

void FileListView::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    if (!model() || model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette::kQuietText);
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
}

void FileListView::resizeEvent(QResizeEvent* event)
{
    QTreeView::resizeEvent(event);
    if (!model())
        return;
    const int room = viewport()->width();
    header()->setSectionResizeMode(FileModel::Name, QHeaderView::Stretch);
    setColumnHidden(FileModel::Kind, room < scaledPixels(kRoomForKind));
    setColumnHidden(FileModel::Date, room < scaledPixels(kRoomForDate));
    header()->resizeSection(FileModel::Size, scaledPixels(kSizeWidth));
    header()->resizeSection(FileModel::Kind, scaledPixels(kKindWidth));
    header()->resizeSection(FileModel::Date, scaledPixels(kDateWidth));
}

void FileListView::keyPressEvent(QKeyEvent* event)
{
    const bool up = event->key() == Qt::Key_Up && event->modifiers().testFlag(Qt::AltModifier);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        chosen();
    else if (event->key() == Qt::Key_Backspace || up)
        goUp();
    else
        QTreeView::keyPressEvent(event);
}

void FileListView::mousePressEvent(QMouseEvent* event)
{
    choosing_ = false;
    QTreeView::mousePressEvent(event);
}

void FileListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTreeView::mouseDoubleClickEvent(event);
    choosing_ = event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid();
}

void FileListView::mouseReleaseEvent(QMouseEvent* event)
{
    QTreeView::mouseReleaseEvent(event);
    if (std::exchange(choosing_, false))
        chosen();
}

} // namespace tandrel
