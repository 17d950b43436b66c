/// Finds texts that don't have the room they need, as the real widgets would draw them.
#pragma once

#include "toolkit/qt/frame_painter.h"
#include "toolkit/qt/style.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QRegularExpression>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QTextDocument>
#include <QWidget>

#include <algorithm>
#include <string>
#include <vector>

namespace tandrel::test
{

/// What the marks of letters leave of a button's text.
inline QString withoutMarks(const QString& text) { return withoutMnemonic(text.toStdString()); }

/// What runs has its figures set in one width each, a little wider than the label's own hint says; 0 for other labels.
inline int widthOfFigures(const QLabel& label)
{
    static const QStringList kRunning{QStringLiteral("time"), QStringLiteral("value"), QStringLiteral("figure"),
                                      QStringLiteral("chip")};
    if (!kRunning.contains(label.property("role").toString()))
        return 0;
    const QFontMetricsF metrics(label.font());
    double width = 0;
    for (const QChar mark : label.text())
        width += metrics.horizontalAdvance(mark.isDigit() ? QLatin1Char('0') : mark);
    return static_cast<int>(width);
}

inline bool hasRoom(const QLabel& label)
{
    if (label.text().isEmpty())
        return true;
    const QSize hint = label.sizeHint();
    if (label.wordWrap()) {
        int widest = 0;
        // The mark that nobody sees lets a long word be broken.
        for (const QString& word : label.text().split(QRegularExpression(QStringLiteral("[\\s\u200B]"))))
            widest = std::max(widest, label.fontMetrics().horizontalAdvance(word));
        return widest <= label.width() && label.heightForWidth(label.width()) <= label.height();
    }
    // Lines have room above and below their letters that nobody misses.
    const int letters = label.fontMetrics().tightBoundingRect(QStringLiteral("ÄÇgp")).height();
    return std::max(hint.width(), widthOfFigures(label)) <= label.width() && letters <= label.height();
}

inline bool hasRoom(const QAbstractButton& button)
{
    if (button.text().isEmpty())
        return true;
    QStyleOptionButton option;
    option.initFrom(&button);
    option.text = button.text();
    const auto part = button.isCheckable() ? QStyle::SE_CheckBoxContents : QStyle::SE_PushButtonContents;
    const QRect room = button.style()->subElementRect(part, &option, &button);
    return button.fontMetrics().horizontalAdvance(withoutMarks(button.text())) <= room.width();
}

inline bool hasRoom(const QComboBox& box)
{
    QStyleOptionComboBox option;
    option.initFrom(&box);
    const QRect room = box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box);
    for (int entry = 0; entry < box.count(); ++entry)
        if (box.fontMetrics().horizontalAdvance(box.itemText(entry)) > room.width())
            return false;
    return true;
}

/// The title of a dialog, which its frame cuts in the middle where it is too long.
inline bool titleHasRoom(const QWidget& window)
{
    constexpr int kBesideTitle = 46;
    QFont font = QApplication::font();
    font.setPixelSize(scaledPixels(12));
    return QFontMetrics(font).horizontalAdvance(window.windowTitle()) <= window.width() - kBesideTitle;
}

/// The name and the text of each control of the window whose text is cut. `leftOut` are names of those that cut file
/// names, which is what they are for.
inline std::vector<std::string> cutTexts(const QWidget& window, const std::vector<std::string>& leftOut = {})
{
    std::vector<std::string> cut;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const std::string name = widget->objectName().toStdString();
        if (!widget->isVisibleTo(&window) || std::find(leftOut.begin(), leftOut.end(), name) != leftOut.end())
            continue;
        const auto* label = qobject_cast<const QLabel*>(widget);
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        const auto* box = qobject_cast<const QComboBox*>(widget);
        if ((label && !hasRoom(*label)) || (button && !hasRoom(*button)) || (box && !hasRoom(*box)))
            cut.push_back(name + " of " + std::to_string(widget->width()) + " by " + std::to_string(widget->height()) +
                          " for " + std::to_string(widget->sizeHint().width()) + " by " +
                          std::to_string(widget->sizeHint().height()) + ": " +
                          (label    ? label->text()
                           : button ? button->text()
                                    : QString())
                              .toStdString());
    }
    return cut;
}

/// Tips that would be wider than a screen of this width. Those that are marked up have their long lines broken.
inline std::vector<std::string> longTips(const QWidget& window, int screenWidth)
{
    QFont font = QApplication::font();
    font.setPixelSize(scaledPixels(12));
    std::vector<std::string> found;
    for (const QWidget* widget : window.findChildren<QWidget*>())
        if (!Qt::mightBeRichText(widget->toolTip()) &&
            QFontMetrics(font).horizontalAdvance(widget->toolTip()) + scaledPixels(14) > screenWidth)
            found.push_back(widget->toolTip().toStdString());
    return found;
}

/// Entries of the menu that are wider than it shows them, itself and all menus below it.
inline std::vector<std::string> cutEntries(const QMenu& menu)
{
    std::vector<std::string> cut;
    for (QAction* entry : menu.actions()) {
        const int wanted = menu.fontMetrics().horizontalAdvance(
            withoutMarks(entry->text().section(QLatin1Char('\t'), 0, 0)) + entry->text().section(QLatin1Char('\t'), 1));
        if (!entry->isSeparator() && wanted > menu.actionGeometry(entry).width())
            cut.push_back(entry->text().toStdString());
        if (entry->menu())
            for (const std::string& below : cutEntries(*entry->menu()))
                cut.push_back(below);
    }
    return cut;
}

} // namespace tandrel::test
