// The controls of the dialog for files and where they stand.

#include "toolkit/qt/drawings.h"
#include "toolkit/qt/file_dialog_window.h"
#include "toolkit/qt/file_list_view.h"
#include "toolkit/qt/file_names.h"
#include "toolkit/qt/file_places.h"
#include "toolkit/qt/frame_painter.h"
#include "toolkit/qt/style.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QToolButton>

#include <algorithm>
#include <array>

namespace tandrel
{

namespace
{

constexpr QSize kUsualSize(780, 500);
constexpr QSize kLeastSize(380, 280);
constexpr int kLeastPlaces = 136;
constexpr int kMostPlaces = 190;
constexpr int kAroundPlaces = 26;
/// A narrower dialog is all list.
constexpr int kRoomForPlaces = 480;
constexpr int kIcon = 16;
constexpr int kGap = 8;

/// What the next dialog takes over.
struct ViewPreferences {
    QSize size;
    int column = FileModel::Name;
    Qt::SortOrder order = Qt::AscendingOrder;
};

ViewPreferences& preferences()
{
    static ViewPreferences kept;
    return kept;
}

QSize scaledSize(const QSize& size) { return {scaledPixels(size.width()), scaledPixels(size.height())}; }

QIcon icon(const QString& name, double ratio)
{
    const int size = scaledPixels(kIcon);
    return QIcon(drawing(name, {size, size}, ratio));
}

QLabel* labelFor(QWidget* control, const Text& text)
{
    auto* label = new QLabel(rendered(text));
    label->setBuddy(control);
    control->setAccessibleName(withoutMnemonic(text));
    return label;
}

template <class Widget>
Widget* named(Widget* widget, const char* name)
{
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

} // namespace

FileDialogWindow::~FileDialogWindow()
{
    preferences() = {size(), list_->header()->sortIndicatorSection(), list_->header()->sortIndicatorOrder()};
    // The list outlives the rows otherwise.
    list_->setModel(nullptr);
}

void FileDialogWindow::build()
{
    auto* rows = new QVBoxLayout(&body());
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(scaledPixels(kGap));
    rows->addLayout(makeTop());
    rows->addLayout(makeMiddle(), 1);
    rows->addLayout(makeBottom());
    const std::array<QWidget*, 8> order{name_, filter_, accept_, reject_, lookIn_, up_, places_, list_};
    for (std::size_t at = 1; at < order.size(); ++at)
        setTabOrder(order[at - 1], order[at]);
    setMinimumSize(scaledSize(kLeastSize));
    placeBefore(preferences().size.isValid() ? preferences().size : scaledSize(kUsualSize));
    fillPlaces();
    applyFilter();
}

QLayout* FileDialogWindow::makeTop()
{
    lookIn_ = named(new QComboBox, "lookIn");
    lookIn_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    lookIn_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(lookIn_, &QComboBox::activated, this, [this](int at) { enter(lookIn_->itemData(at).toByteArray()); });
    up_ = named(new QToolButton, "folderUp");
    up_->setIcon(icon(QStringLiteral("folder_up"), devicePixelRatioF()));
    up_->setIconSize(scaledSize({kIcon, kIcon}));
    up_->setToolTip(rendered(texts_.up));
    up_->setAccessibleName(rendered(texts_.up));
    connect(up_, &QToolButton::clicked, this, [this] { enter(parentFolder(folder_)); });
    auto* row = new QHBoxLayout;
    row->addWidget(labelFor(lookIn_, texts_.lookIn));
    row->addWidget(lookIn_, 1);
    row->addWidget(up_);
    return row;
}

QLayout* FileDialogWindow::makeMiddle()
{
    makePlaces();
    makeList();
    auto* row = new QHBoxLayout;
    row->setSpacing(scaledPixels(kGap));
    row->addWidget(places_);
    row->addWidget(list_, 1);
    return row;
}

void FileDialogWindow::makePlaces()
{
    places_ = named(new QListWidget, "filePlaces");
    places_->setAccessibleName(withoutMnemonic(texts_.lookIn));
    places_->setIconSize(scaledSize({kIcon, kIcon}));
    places_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const auto go = [this](const QListWidgetItem* item) { enter(item->data(Qt::UserRole).toByteArray()); };
    connect(places_, &QListWidget::itemClicked, this, go);
    connect(places_, &QListWidget::itemActivated, this, go);
}

void FileDialogWindow::makeList()
{
    list_ = named(new FileListView(&body()), "fileList");
    list_->setAccessibleName(rendered(what_.title));
    list_->setModel(&model_);
    list_->setColumnHidden(FileModel::Size, choosesFolders());
    list_->setIconSize(scaledSize({kIcon, kIcon}));
    list_->setSelectionMode(what_.several ? QAbstractItemView::ExtendedSelection : QAbstractItemView::SingleSelection);
    list_->sortByColumn(preferences().column, preferences().order);
    list_->chosen = [this] { acceptRows(); };
    list_->goUp = [this] { enter(parentFolder(folder_)); };
    connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { selectionChanged(); });
}

void FileDialogWindow::makeName()
{
    hint_ = named(new QLabel, "fileHint");
    hint_->setProperty("role", QStringLiteral("hint"));
    hint_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    hint_->setTextFormat(Qt::PlainText);
    hint_->setWordWrap(true);
    name_ = named(new QLineEdit, "fileName");
    connect(name_, &QLineEdit::textEdited, this, [this] {
        edited_ = true;
        hint({});
    });
}

void FileDialogWindow::makeFilter()
{
    filter_ = named(new QComboBox, "fileFilter");
    filter_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    filter_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    for (const FileDialog::Filter& one : what_.filters)
        filter_->addItem(rendered(one.name));
    connect(filter_, &QComboBox::currentIndexChanged, this, [this] { applyFilter(); });
}

void FileDialogWindow::makeButtons()
{
    const bool saves = what_.kind == FileDialog::Kind::Save;
    const Text& does = choosesFolders() ? texts_.choose : saves ? texts_.save : texts_.open;
    accept_ = named(new QPushButton(rendered(does)), "accept");
    accept_->setDefault(true);
    connect(accept_, &QPushButton::clicked, this, [this] { acceptChoice(); });
    reject_ = named(new QPushButton(rendered(texts_.cancel)), "reject");
    reject_->setAutoDefault(false);
    connect(reject_, &QPushButton::clicked, this, &QDialog::reject);
}

QLayout* FileDialogWindow::makeBottom()
{
    makeName();
    makeFilter();
    makeButtons();
    auto* grid = new QGridLayout;
    grid->setSpacing(scaledPixels(kGap));
    grid->addWidget(hint_, 0, 0, 1, 3);
    grid->addWidget(labelFor(name_, choosesFolders() ? texts_.folderName : texts_.fileName), 1, 0);
    grid->addWidget(name_, 1, 1);
    grid->addWidget(accept_, 1, 2);
    QLabel* kinds = labelFor(filter_, texts_.fileTypes);
    grid->addWidget(kinds, 2, 0);
    grid->addWidget(filter_, 2, 1);
    grid->addWidget(reject_, 2, 2);
    grid->setColumnStretch(1, 1);
    if (what_.filters.empty()) {
        kinds->hide();
        filter_->hide();
    }
    return grid;
}

void FileDialogWindow::fillPlaces()
{
    for (const FilePlace& place : filePlaces(texts_)) {
        auto* item = new QListWidgetItem(icon(place.icon, devicePixelRatioF()), place.title, places_);
        item->setData(Qt::UserRole, place.folder);
        item->setToolTip(plainTip(shownName(place.folder)));
    }
    const int wanted = places_->sizeHintForColumn(0) + scaledPixels(kAroundPlaces);
    places_->setFixedWidth(std::clamp(wanted, scaledPixels(kLeastPlaces), scaledPixels(kMostPlaces)));
}

void FileDialogWindow::resizeEvent(QResizeEvent* event)
{
    FramedDialog::resizeEvent(event);
    places_->setVisible(width() >= scaledPixels(kRoomForPlaces));
}

void FileDialogWindow::fillLookIn()
{
    lookIn_->clear();
    for (QByteArray folder = folder_;; folder = parentFolder(folder)) {
        lookIn_->addItem(icon(QStringLiteral("file_folder"), devicePixelRatioF()), shownName(folder), folder);
        if (folder == parentFolder(folder))
            break;
    }
    up_->setEnabled(folder_ != parentFolder(folder_));
    for (int row = 0; row < places_->count(); ++row)
        if (places_->item(row)->data(Qt::UserRole).toByteArray() == folder_)
            return places_->setCurrentRow(row);
    places_->setCurrentRow(-1);
}

} // namespace tandrel
