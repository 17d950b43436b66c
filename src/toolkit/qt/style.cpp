#include "toolkit/qt/style.h"

#include "toolkit/qt/palette.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPalette>
#include <QStyleFactory>

namespace tandrel
{

namespace
{

constexpr const char* kSheet = R"(
QWidget { color: %text; }
QLabel { background: transparent; }
QLabel[role="quiet"] { color: %quiet; }
QLabel[role="title"] { color: %moves; font-size: 13px; font-weight: 600; }
QLabel[role="time"] { color: %text; font-size: 34px; font-weight: 300; }
QLabel[role="value"] { color: %text; font-size: 15px; }
QLabel[role="caption"] { color: %quiet; font-size: 9px; letter-spacing: 1px; }
QDialog, QMessageBox { background: %body; border: 1px solid %rim; }
QPushButton { background: %button; border: 1px solid %rim; border-radius: 8px; padding: 5px 16px; min-width: 48px; }
QPushButton:hover { background: %hover; border-color: %moves; }
QPushButton:pressed { background: %pressed; padding-top: 6px; padding-bottom: 4px; }
QPushButton:focus { border: 2px solid %moves; }
QPushButton:disabled, QCheckBox:disabled { color: %quiet; }
QCheckBox { background: transparent; spacing: 6px; }
QCheckBox::indicator { width: 13px; height: 13px; border: 1px solid %rim; border-radius: 3px; background: %glass; }
QCheckBox::indicator:checked { background: %moves; }
QCheckBox:focus { outline: none; }
QComboBox { background: %glass; border: 1px solid %rim; border-radius: 8px; padding: 4px 8px; }
QComboBox QAbstractItemView { background: %glass; selection-background-color: %deep; border: 1px solid %rim; }
QToolTip { background: %glass; color: %text; border: 1px solid %rim; padding: 4px 6px; }
QMenu { background: %body; border: 1px solid %rim; border-radius: 8px; padding: 6px; }
QMenu::item { padding: 5px 22px; border-radius: 4px; }
QMenu::item:selected { background: %deep; }
)";

QString sheet()
{
    QString text = QString::fromLatin1(kSheet);
    const std::pair<const char*, QColor> colours[] = {
        {"%text", palette::kText},
        {"%quiet", palette::kQuietText},
        {"%moves", palette::kMoves},
        {"%deep", palette::kMovesDeep},
        {"%rim", palette::kRim.darker(160)},
        {"%body", palette::kBase},
        {"%glass", palette::kGlassBottom},
        {"%button", palette::kBodyTop},
        {"%hover", palette::kBodyTop.lighter(125)},
        {"%pressed", palette::kBodyBottom},
    };
    for (const auto& [mark, colour] : colours)
        text.replace(QLatin1String(mark), colour.name());
    return text;
}

} // namespace

void applyStyle(QApplication& application)
{
    application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont font(QFontDatabase::families().contains(QLatin1String("Inter")) ? QStringLiteral("Inter")
                                                                          : application.font().family());
    font.setPixelSize(12);
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
