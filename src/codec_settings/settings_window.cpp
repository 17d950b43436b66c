#include "codec_settings/settings_window.h"

#include "codec_settings/segmented_choice.h"
#include "toolkit/qt/palette.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStackedWidget>

namespace tandrel
{

namespace
{
constexpr int kWidth = 620;
constexpr int kMargin = 14;

// Beside the style sheet of all windows: what only this one has. Colours are written as %name.
constexpr const char* kSheet = R"(
QLabel[role="row"] { font-size: 12px; }
QLabel[role="number"] { font-size: 12px; color: %moves; }
QFrame#panel { background: %glass; border: 1px solid %rim; border-radius: 8px; }
QPushButton[segment] { border-radius: 0; min-width: 0; padding: 4px 6px; background: %well; color: %quiet; }
QPushButton[segment]:hover { color: %text; background: %hover; }
QPushButton[segment]:pressed { padding: 4px 6px; }
QPushButton[segment]:checked { background: %deep; color: %text; border-color: %moves; }
QPushButton[segment]:focus { border: 2px solid %moves; padding: 3px 5px; }
QPushButton[segment="first"] { border-top-left-radius: 7px; border-bottom-left-radius: 7px; }
QPushButton[segment="last"] { border-top-right-radius: 7px; border-bottom-right-radius: 7px; }
QPushButton#apply { background: %deep; border-color: %moves; font-weight: 600; }
QPushButton#apply:hover { background: %lit; }
QPushButton#apply:pressed { background: %pressed; }
)";

QString ownSheet()
{
    QString text = QString::fromLatin1(kSheet);
    const std::pair<const char*, QColor> colours[] = {
        {"%moves", palette::kMoves},         {"%glass", palette::kGlassBottom},
        {"%rim", palette::kRim.darker(220)}, {"%well", palette::kWell},
        {"%quiet", palette::kQuietText},     {"%text", palette::kText},
        {"%hover", palette::kPlateDeep},     {"%deep", palette::kMovesDeep.darker(135)},
        {"%lit", palette::kMovesDeep},       {"%pressed", palette::kPlatePressed},
    };
    for (const auto& [mark, colour] : colours)
        text.replace(QLatin1String(mark), colour.name());
    return text;
}

const char* titleKey(CodecPages pages)
{
    switch (pages) {
    case CodecPages::Picture:
        return "codec.videoTitle";
    case CodecPages::Sound:
        return "codec.audioTitle";
    case CodecPages::Both:
        break;
    }
    return "codec.bothTitle";
}
} // namespace

SettingsWindow::SettingsWindow(CodecPages pages, CodecFile& file, std::string_view language)
    : pages_(pages), file_(file), texts_(language), values_(file.read())
{
    setObjectName(QStringLiteral("codecSettings"));
    setWindowTitle(texts_(titleKey(pages)));
    setAccessibleName(windowTitle());
    setStyleSheet(ownSheet());
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->setSpacing(10);
    std::vector<QWidget*> panels;
    if (pages != CodecPages::Sound)
        panels.push_back(makePanel(SettingsPage::Kind::Picture));
    if (pages != CodecPages::Picture)
        panels.push_back(makePanel(SettingsPage::Kind::Sound));
    if (panels.size() > 1)
        addTabs(*column, panels);
    else
        column->addWidget(panels.front());
    column->addWidget(makeFooter());
    const CodecSettings stored = values_;
    for (SettingsPage* page : shown_)
        page->show(stored);
    tell("codec.hint");
    setFixedSize(kWidth, column->totalSizeHint().height());
}

void SettingsWindow::addTabs(QVBoxLayout& column, const std::vector<QWidget*>& panels)
{
    auto* pile = new QStackedWidget(this);
    for (QWidget* panel : panels)
        pile->addWidget(panel);
    auto* tabs = new SegmentedChoice(QStringLiteral("pages"), windowTitle(),
                                     {texts_("codec.picture"), texts_("codec.sound")}, this);
    QObject::connect(&tabs->group(), &QButtonGroup::idToggled, pile, [pile](int id, bool on) {
        if (on)
            pile->setCurrentIndex(id);
    });
    tabs->setValue(0);
    column.addWidget(tabs);
    column.addWidget(pile);
}

QWidget* SettingsWindow::makePanel(SettingsPage::Kind kind)
{
    auto* panel = new QFrame(this);
    panel->setObjectName(QStringLiteral("panel"));
    auto* inside = new QVBoxLayout(panel);
    inside->setContentsMargins(0, 0, 0, 0);
    shown_.push_back(new SettingsPage(
        kind, texts_,
        [this](CodecValue value, int to) {
            values_.set(value, to);
            if (status_ != nullptr)
                tell("codec.hint");
        },
        panel));
    inside->addWidget(shown_.back());
    return panel;
}

QWidget* SettingsWindow::makeFooter()
{
    auto* footer = new QWidget(this);
    auto* row = new QHBoxLayout(footer);
    row->setContentsMargins(0, 0, 0, 0);
    const auto button = [&](const char* name, const char* key, void (SettingsWindow::*act)()) {
        auto* made = new QPushButton(texts_(key), footer);
        made->setObjectName(QString::fromLatin1(name));
        made->setAccessibleName(texts_(key));
        QObject::connect(made, &QPushButton::clicked, this, act);
        return made;
    };
    status_ = new QLabel(footer);
    status_->setObjectName(QStringLiteral("status"));
    status_->setProperty("role", "quiet");
    status_->setWordWrap(true);
    row->addWidget(button("defaults", "codec.defaults", &SettingsWindow::takeDefaults));
    row->addSpacing(6);
    row->addWidget(status_, 1);
    auto* end = new QPushButton(texts_("codec.close"), footer);
    end->setObjectName(QStringLiteral("close"));
    end->setAccessibleName(end->text());
    QObject::connect(end, &QPushButton::clicked, this, &QWidget::close);
    row->addWidget(end);
    row->addWidget(button("apply", "codec.apply", &SettingsWindow::apply));
    return footer;
}

void SettingsWindow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QLinearGradient body(0, 0, 0, height());
    body.setColorAt(0, palette::kBodyTop);
    body.setColorAt(1, palette::kBodyBottom);
    painter.fillRect(rect(), body);
}

void SettingsWindow::apply()
{
    // The other page may be open in a program of its own.
    CodecSettings all = file_.read();
    if (pages_ != CodecPages::Sound)
        all.takeSection("picture", values_);
    if (pages_ != CodecPages::Picture)
        all.takeSection("sound", values_);
    tell(file_.write(all) ? "codec.saved" : "codec.notSaved");
}

void SettingsWindow::takeDefaults()
{
    for (SettingsPage* page : shown_)
        page->show(CodecSettings());
}

void SettingsWindow::tell(std::string_view key) { status_->setText(texts_(key)); }

} // namespace tandrel
