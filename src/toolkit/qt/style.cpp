#include "toolkit/qt/style.h"

#include "toolkit/qt/palette.h"
#include "toolkit/screen.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QRegularExpression>
#include <QStyleFactory>

#include <cmath>

namespace tandrel
{

namespace
{

// Lengths are written as {pixels}, colours as %name.
constexpr const char* kSheet = R"(
QWidget { color: %text; }
QLabel { background: transparent; }
QLabel[role="quiet"] { color: %quiet; font-size: {11}; }
QLabel[role="title"] { color: %moves; font-size: {13}; font-weight: 600; }
QLabel[role="heading"] { color: %moves; font-size: {12}; font-weight: 600; }
QLabel[role="time"] { color: %text; font-size: {34}; font-weight: 300; }
QLabel[role="value"] { color: %text; font-size: {15}; }
QLabel[role="figure"] { color: %text; font-size: {17}; font-weight: 300; }
QLabel[role="display"] { color: %text; font-size: {42}; font-weight: 300; }
QLabel[role="caption"] { color: %quiet; font-size: {9}; letter-spacing: 1px; }
QLabel[role="group"] { color: %group; font-size: {9}; font-weight: 600; letter-spacing: 1px; }
QLabel[role="chip"] { color: %text; font-size: {11}; background: %button; border-radius: {8}; }
QDialog, QMessageBox { background: %body; dialogbuttonbox-buttons-have-icons: 0; }
QDialog QLabel { font-size: {13}; }
QPushButton { background: %button; border: 1px solid %rim; border-radius: {8}; padding: {5} {16}; min-width: {56};
              font-size: {12}; }
QPushButton:hover { background: %hover; border-color: %moves; }
QPushButton:pressed { background: %pressed; padding-top: {6}; padding-bottom: {4}; }
QPushButton:focus { border: 2px solid %moves; }
QPushButton:disabled, QCheckBox:disabled, QComboBox:disabled { color: %faint; }
QPushButton[compact="true"] { padding: 0; min-width: 0; border-radius: {7}; font-size: {13}; }
QPushButton[compact="true"]:pressed { padding: 1px 0 0 0; }
QCheckBox { background: transparent; spacing: {6}; font-size: {11}; color: %quiet; }
QCheckBox:hover { color: %text; }
QCheckBox::indicator { width: {12}; height: {12}; border: 1px solid %rim; border-radius: {3}; background: %glass; }
QCheckBox::indicator:hover { border-color: %moves; }
QCheckBox::indicator:checked { background: %moves; }
QCheckBox:focus { outline: none; color: %text; }
QCheckBox::indicator:focus { border: 2px solid %moves; width: {10}; height: {10}; }
QComboBox { background: %glass; border: 1px solid %rim; border-radius: {8}; padding: {4} {10}; font-size: {13}; }
QComboBox:hover { border-color: %moves; }
QComboBox:focus { border: 2px solid %moves; }
QComboBox::drop-down { border: none; width: {26}; }
QComboBox::down-arrow { image: url(:/skin/arrow_down.svg); width: {12}; height: {12}; }
QComboBox QAbstractItemView { background: %glass; selection-background-color: %deep; border: 1px solid %rim;
                              outline: none; padding: {4}; }
QLabel[role="hint"] { color: %group; font-size: {12}; }
QLineEdit { background: %glass; border: 1px solid %rim; border-radius: {8}; padding: {4} {10}; font-size: {13};
            selection-background-color: %deep; selection-color: %text; }
QLineEdit:hover { border-color: %moves; }
QLineEdit:focus { border: 2px solid %moves; padding: {3} {9}; }
QToolButton { background: %button; border: 1px solid %rim; border-radius: {8}; padding: {5} {7}; }
QToolButton:hover { background: %hover; border-color: %moves; }
QToolButton:pressed { background: %pressed; }
QToolButton:focus { border: 2px solid %moves; padding: {4} {6}; }
QTreeView, QListWidget { background: %glass; border: 1px solid %rim; border-radius: {8}; padding: {3}; outline: none;
                         font-size: {12}; }
QTreeView:focus, QListWidget:focus { border: 1px solid %moves; }
QListWidget#filePlaces { background: transparent; border-color: transparent; }
QListWidget#filePlaces:focus { border-color: %moves; }
QTreeView::item { height: {25}; border: none; padding: 0 {4}; }
QListWidget::item { height: {28}; border-radius: {6}; padding: 0 {6}; }
QTreeView::item:hover, QListWidget::item:hover { background: %base; }
QTreeView::item:selected, QListWidget::item:selected { background: %deep; color: %text; }
QListWidget#filePlaces::item:selected:!active, QListWidget#filePlaces::item:selected { background: %button; }
QListWidget#filePlaces::item:hover:!selected { background: %hoverdim; }
QHeaderView { background: transparent; border: none; }
QHeaderView::section { background: transparent; color: %quiet; border: none; border-bottom: 1px solid %rim;
                       padding: {4} {8}; font-size: {11}; }
QHeaderView::section:hover { color: %text; }
QHeaderView::up-arrow { image: url(:/skin/sort_up.svg); width: {9}; height: {9}; }
QHeaderView::down-arrow { image: url(:/skin/sort_down.svg); width: {9}; height: {9}; }
QScrollBar:vertical { background: transparent; width: {10}; margin: {2}; }
QScrollBar::handle:vertical { background: %button; border-radius: {3}; min-height: {28}; }
QScrollBar::handle:vertical:hover { background: %hover; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QProgressBar { background: %glass; border: 1px solid %rim; border-radius: {4}; }
QProgressBar::chunk { background: %moves; border-radius: {3}; }
QToolTip { background: %glass; color: %text; border: 1px solid %rim; padding: {4} {6}; font-size: {12}; }
QMenu { background: %body; border: 1px solid %rim; border-radius: {8}; padding: {6}; font-size: {12}; }
QMenu::item { padding: {6} {24} {6} {24}; border-radius: {5}; }
QMenu::item:selected { background: %deep; }
QMenu::item:disabled { color: %faint; }
QMenu::separator { height: 1px; background: %rim; margin: {4} {10}; }
QMenu::indicator { width: {12}; height: {12}; left: {7}; }
QMenu::indicator:checked { image: url(:/skin/check.svg); }
)";

/// All lengths in braces, in pixels of this screen.
void scaleLengths(QString& text)
{
    static const QRegularExpression length(QStringLiteral("\\{(\\d+)\\}"));
    for (auto found = length.match(text); found.hasMatch(); found = length.match(text))
        text.replace(found.capturedStart(), found.capturedLength(),
                     QString::number(scaledPixels(found.captured(1).toInt())) + QLatin1String("px"));
}

QString sheet()
{
    QString text = QString::fromLatin1(kSheet);
    const std::pair<const char*, QColor> colours[] = {
        {"%text", palette::kText},
        {"%quiet", palette::kQuietText},
        {"%moves", palette::kMoves},
        {"%group", palette::kGroup},
        {"%faint", palette::kRim.darker(150)},
        {"%deep", palette::kMovesDeep},
        {"%rim", palette::kRim.darker(160)},
        {"%body", palette::kBase},
        {"%glass", palette::kGlassBottom},
        {"%button", palette::kBodyTop},
        {"%base", palette::kBase},
        {"%hoverdim", palette::kBase.lighter(130)},
        {"%hover", palette::kBodyTop.lighter(125)},
        {"%pressed", palette::kBodyBottom},
    };
    for (const auto& [mark, colour] : colours)
        text.replace(QLatin1String(mark), colour.name());
    scaleLengths(text);
    return text;
}

} // namespace

int scaledPixels(double pixels)
{
    constexpr double kUsualTwips = 15;
    return static_cast<int>(std::lround(pixels * kUsualTwips / std::max<int>(1, screen().TwipsPerPixelY())));
}

void applyStyle(QApplication& application)
{
    application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont font;
    font.setFamilies({QStringLiteral("Inter"), QStringLiteral("DejaVu Sans"), application.font().family()});
    // The name of the desktop's own style would win over the weights of the sheet.
    font.setStyleName({});
    font.setPixelSize(scaledPixels(12));
    application.setFont(font);
    QPalette colours;
    colours.setColor(QPalette::Window, palette::kBase);
    colours.setColor(QPalette::WindowText, palette::kText);
    colours.setColor(QPalette::Base, palette::kGlassBottom);
    colours.setColor(QPalette::Text, palette::kText);
    colours.setColor(QPalette::Button, palette::kBodyTop);
    colours.setColor(QPalette::ButtonText, palette::kText);
    colours.setColor(QPalette::Highlight, palette::kMovesDeep);
    application.setPalette(colours);
    application.setStyleSheet(sheet());
}

} // namespace tandrel
