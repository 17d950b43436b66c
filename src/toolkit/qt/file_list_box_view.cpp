// The list of files with their small pictures, and the frame that it stands in.

#include "toolkit/file_list_box.h"
#include "toolkit/qt/drawings.h"
#include "toolkit/qt/form_widget.h"
#include "toolkit/qt/frame_painter.h"
#include "toolkit/qt/kinds.h"
#include "toolkit/qt/palette.h"
#include "toolkit/qt/style.h"

#include <QEvent>
#include <QItemSelectionModel>
#include <QListWidget>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QStyledItemDelegate>

namespace tandrel
{

namespace
{

constexpr int kRowHeight = 42;
constexpr int kStillWidth = 60;
constexpr int kStillHeight = 34;
/// Of the drawing that stands in for a still.
constexpr int kMarkSize = 20;
constexpr int kEntryGap = 10;
constexpr int kNoteWidth = 64;
constexpr int kFolderRole = Qt::UserRole;
constexpr int kNoteRole = Qt::UserRole + 1;

/// A still, the name over the folder, and the length at the right.
class TileDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override
    {
        return {0, scaledPixels(kRowHeight)};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setRenderHint(QPainter::SmoothPixmapTransform);
        const QRectF row = QRectF(option.rect).adjusted(1, 1, -1, -1);
        paintGround(*painter, option, row);
        const QRectF still(row.left() + scaledPixels(5), row.center().y() - scaledPixels(kStillHeight) / 2.0,
                           scaledPixels(kStillWidth), scaledPixels(kStillHeight));
        paintStill(*painter, still, index.data(Qt::DecorationRole).value<QPixmap>());
        const double left = still.right() + scaledPixels(kEntryGap);
        const QRectF words(left, row.top(), row.right() - scaledPixels(kNoteWidth + kEntryGap) - left, row.height());
        const bool selected = (option.state & QStyle::State_Selected) != 0;
        paintWords(*painter, words, index, selected);
        painter->setPen(selected ? palette::kText : palette::kQuietText);
        painter->drawText(row.adjusted(0, 0, -scaledPixels(kEntryGap), 0), Qt::AlignRight | Qt::AlignVCenter,
                          index.data(kNoteRole).toString());
        painter->restore();
    }

private:
    static void paintGround(QPainter& painter, const QStyleOptionViewItem& option, const QRectF& row)
    {
        const bool selected = (option.state & QStyle::State_Selected) != 0;
        const bool hovered = (option.state & QStyle::State_MouseOver) != 0;
        painter.setPen(Qt::NoPen);
        if (selected || hovered) {
            painter.setBrush(selected ? palette::kMovesDeep : palette::kBase);
            painter.drawRoundedRect(row, scaledPixels(6), scaledPixels(6));
        }
        if ((option.state & QStyle::State_HasFocus) != 0) {
            painter.setBrush(Qt::NoBrush);
            painter.setPen(QPen(palette::kMoves, 1));
            painter.drawRoundedRect(row.adjusted(0.5, 0.5, -0.5, -0.5), scaledPixels(6), scaledPixels(6));
        }
    }

    static void paintStill(QPainter& painter, const QRectF& place, const QPixmap& still)
    {
        QPainterPath round;
        round.addRoundedRect(place, scaledPixels(4), scaledPixels(4));
        painter.save();
        painter.setClipPath(round);
        painter.fillRect(place, palette::kVideoGround);
        if (still.isNull()) {
            const QSize mark(scaledPixels(kMarkSize), scaledPixels(kMarkSize));
            painter.setOpacity(0.55);
            painter.drawPixmap(place.center() - QPointF(mark.width(), mark.height()) / 2,
                               drawing(QStringLiteral("file_film"), mark, painter.device()->devicePixelRatioF()));
        } else {
            // Filled as a whole: what is wider or higher than the place is cut.
            const QSizeF whole = QSizeF(still.size()).scaled(place.size(), Qt::KeepAspectRatioByExpanding);
            QRectF drawn(QPointF(), whole);
            drawn.moveCenter(place.center());
            painter.drawPixmap(drawn, still, QRectF(still.rect()));
        }
        painter.restore();
        painter.setPen(QPen(palette::kEdgeLight, 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(round);
    }

    static void paintWords(QPainter& painter, const QRectF& place, const QModelIndex& index, bool selected)
    {
        const QRectF upper(place.left(), place.top() + scaledPixels(4), place.width(), place.height() / 2 - 2);
        const QRectF lower(place.left(), place.center().y(), place.width(), place.height() / 2 - scaledPixels(4));
        const auto line = [&](const QRectF& where, int role, Qt::TextElideMode cut) {
            const QFontMetricsF metrics(painter.font());
            painter.drawText(where, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                             metrics.elidedText(index.data(role).toString(), cut, where.width()));
        };
        painter.setPen(palette::kText);
        line(upper, Qt::DisplayRole, Qt::ElideMiddle);
        QFont small = painter.font();
        small.setPixelSize(scaledPixels(10));
        painter.setFont(small);
        painter.setPen(selected ? palette::kText : palette::kQuietText);
        line(lower, kFolderRole, Qt::ElideMiddle);
    }
};

class ListWidget : public QListWidget
{
public:
    ListWidget(const FileListBox& list, QWidget* parent) : QListWidget(parent), list_(list)
    {
        setSelectionMode(ExtendedSelection);
        setVerticalScrollMode(ScrollPerPixel);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setUniformItemSizes(true);
        setItemDelegate(new TileDelegate(this));
        verticalScrollBar()->setSingleStep(scaledPixels(kRowHeight) / 2);
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QListWidget::paintEvent(event);
        if (count() > 0)
            return;
        QPainter painter(viewport());
        painter.setPen(palette::kQuietText);
        painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, rendered(list_.emptyText));
    }

private:
    const FileListBox& list_;
};

class FileListBoxView : public WidgetView
{
public:
    FileListBoxView(FileListBox& list, FormWidget& window, ListWidget* widget)
        : WidgetView(list, window, widget), list_(list), rows_(widget)
    {
        FileListBoxView::show(Aspect::Caption);
        widget->viewport()->setMouseTracking(true);
        widget->viewport()->installEventFilter(this);
        connect(widget, &QListWidget::itemSelectionChanged, this, [this] { tell(); });
        connect(widget, &QListWidget::currentRowChanged, this, [this] { tell(); });
    }

protected:
    bool widgetNeedsMouse() const override { return true; }

    void show(Aspect aspect) override
    {
        showing_ = true;
        if (aspect == Aspect::Caption)
            fill();
        if (aspect == Aspect::Caption || aspect == Aspect::Value)
            select();
        if (aspect == Aspect::Caption || aspect == Aspect::Picture)
            showTiles();
        showing_ = false;
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == rows_ || event->type() == QEvent::MouseMove || event->type() == QEvent::MouseButtonDblClick)
            return onMouse(watched, event);
        return false;
    }

private:
    bool onMouse(QObject* watched, QEvent* event)
    {
        if (event->type() != QEvent::MouseButtonDblClick || watched == rows_)
            return WidgetView::eventFilter(watched, event);
        // What the handler reads has to be what the user sees, and the handler may end the list.
        tell();
        return WidgetView::eventFilter(watched, event);
    }

    void fill()
    {
        rows_->clear();
        for (const Text& path : list_.entries()) {
            const auto cut = path.rfind('/');
            auto* item = new QListWidgetItem(rendered(fileNameOf(path)), rows_);
            item->setData(kFolderRole, rendered(cut == Text::npos ? Text() : path.substr(0, cut)));
            item->setData(Qt::AccessibleTextRole, rendered(path));
        }
    }

    void select()
    {
        for (int index = 0; index < rows_->count(); ++index)
            rows_->item(index)->setSelected(list_.Selected(index));
        if (list_.listIndex() >= 0)
            rows_->setCurrentRow(list_.listIndex(), QItemSelectionModel::NoUpdate);
    }

    void showTiles()
    {
        for (int index = 0; index < rows_->count(); ++index) {
            const ListTile& tile = list_.tile(index);
            QListWidgetItem* item = rows_->item(index);
            item->setData(kNoteRole, rendered(tile.note));
            if (tile.pixels.empty())
                continue;
            const QImage image(reinterpret_cast<const uchar*>(tile.pixels.data()), tile.width, tile.height,
                               QImage::Format_RGB32);
            item->setData(Qt::DecorationRole, QPixmap::fromImage(image));
        }
    }

    void tell()
    {
        if (showing_)
            return;
        std::vector<std::size_t> selected;
        for (int index = 0; index < rows_->count(); ++index)
            if (rows_->item(index)->isSelected())
                selected.push_back(static_cast<std::size_t>(index));
        list_.userSelected(selected, rows_->currentRow());
    }

    FileListBox& list_;
    ListWidget* rows_;
    bool showing_ = false;
};

/// A rounded frame, a little darker than the form, with its caption at the upper edge.
class GroupWidget : public QWidget
{
public:
    GroupWidget(const GroupBox& box, QWidget* parent) : QWidget(parent), box_(box) {}

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette::kEdgeLight, 1));
        QColor ground = palette::kGlassBottom;
        ground.setAlphaF(0.55);
        painter.setBrush(ground);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), scaledPixels(8), scaledPixels(8));
        QFont small = font();
        small.setPixelSize(scaledPixels(11));
        small.setWeight(QFont::DemiBold);
        painter.setFont(small);
        painter.setPen(palette::kMoves);
        painter.drawText(QRect(scaledPixels(8), 0, width(), scaledPixels(24)), Qt::AlignLeft | Qt::AlignVCenter,
                         rendered(box_.caption()));
    }

private:
    const GroupBox& box_;
};

} // namespace

std::unique_ptr<ControlView> makeFileListBoxView(FileListBox& list, FormWidget& window, QWidget* parent)
{
    return std::make_unique<FileListBoxView>(list, window, new ListWidget(list, parent));
}

std::unique_ptr<ControlView> makeGroupBoxView(GroupBox& box, FormWidget& window, QWidget* parent)
{
    return std::make_unique<WidgetView>(box, window, new GroupWidget(box, parent));
}

} // namespace tandrel
