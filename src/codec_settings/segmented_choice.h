/// One of a few, as buttons side by side.
#pragma once

#include <QButtonGroup>
#include <QStringList>
#include <QWidget>

namespace tandrel
{

class SegmentedChoice : public QWidget
{
public:
    /// `name` is what the choice is of. The buttons get object names of their own: that of this one, a point, and the
    /// number.
    SegmentedChoice(const QString& objectName, const QString& name, const QStringList& options, QWidget* parent);

    int value() const { return group_.checkedId(); }
    void setValue(int value);
    /// Tells of each new choice by `idToggled`.
    QButtonGroup& group() { return group_; }

private:
    QButtonGroup group_;
};

} // namespace tandrel
