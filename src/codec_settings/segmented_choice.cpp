#include "codec_settings/segmented_choice.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace tandrel
{

SegmentedChoice::SegmentedChoice(const QString& objectName, const QString& name, const QStringList& options,
                                 QWidget* parent)
    : QWidget(parent)
{
    setObjectName(objectName);
    setAccessibleName(name);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    group_.setExclusive(true);
    for (int index = 0; index < options.size(); ++index) {
        auto* button = new QPushButton(options[index], this);
        button->setObjectName(objectName + QLatin1Char('.') + QString::number(index));
        button->setAccessibleName(name + QStringLiteral(": ") + options[index]);
        button->setCheckable(true);
        const bool first = index == 0;
        const bool last = index + 1 == options.size();
        button->setProperty("segment", first ? "first" : last ? "last" : "inner");
        group_.addButton(button, index);
        row->addWidget(button, 1);
    }
}

void SegmentedChoice::setValue(int value)
{
    if (QAbstractButton* button = group_.button(value))
        button->setChecked(true);
}

} // namespace tandrel
