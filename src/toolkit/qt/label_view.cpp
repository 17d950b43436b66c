// Texts as Qt's labels.

#include "toolkit/qt/form_widget.h"
#include "toolkit/qt/frame_painter.h"
#include "toolkit/qt/kinds.h"
#include "toolkit/screen.h"

#include <QLabel>
#include <QPaintEvent>
#include <QPainter>
#include <QStyleOption>

namespace tandrel
{

namespace
{

/// The name of each role in the style sheet, and what the sheet can't say: capitals, and figures of one width.
struct Role {
    const char* name;
    bool capitals;
    bool figures;
};
constexpr std::array<Role, 11> kRoles{{{"plain", false, false},
                                       {"quiet", false, false},
                                       {"title", false, false},
                                       {"time", false, true},
                                       {"value", false, true},
                                       {"caption", true, false},
                                       {"group", true, false},
                                       {"chip", false, true},
                                       {"heading", false, false},
                                       {"figure", false, true},
                                       {"display", false, false}}};

const Role& roleOf(const Label& label) { return kRoles[static_cast<std::size_t>(label.role)]; }

/// A text whose figures all take the same room, so that a running time does not dance.
class FigureLabel : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QPainter painter(this);
        QStyleOption option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
        painter.setFont(font());
        painter.setPen(palette().color(foregroundRole()));
        const QFontMetricsF metrics(font());
        double x = startOf(metrics);
        const double base = (height() + metrics.ascent() - metrics.descent()) / 2;
        for (const QChar mark : text()) {
            const double room = widthOf(metrics, mark);
            painter.drawText(QPointF(x + (room - metrics.horizontalAdvance(mark)) / 2, base), mark);
            x += room;
        }
        event->accept();
    }

private:
    static double widthOf(const QFontMetricsF& metrics, QChar mark)
    {
        return metrics.horizontalAdvance(mark.isDigit() ? QLatin1Char('0') : mark);
    }
    double startOf(const QFontMetricsF& metrics) const
    {
        double whole = 0;
        for (const QChar mark : text())
            whole += widthOf(metrics, mark);
        if (alignment() & Qt::AlignHCenter)
            return (width() - whole) / 2;
        return alignment() & Qt::AlignRight ? width() - whole : 0;
    }
};

class LabelView : public WidgetView
{
public:
    LabelView(Label& label, FormWidget& window, QLabel* widget)
        : WidgetView(label, window, widget), label_(label), text_(widget)
    {
        text_->setTextFormat(Qt::PlainText);
        LabelView::show(Aspect::Colour);
        text_->setWordWrap(label.wordWrap);
        text_->setAlignment((label.wordWrap ? Qt::AlignTop : Qt::AlignVCenter) | horizontal());
        if (roleOf(label).capitals) {
            QFont font = text_->font();
            font.setCapitalization(QFont::AllUppercase);
            text_->setFont(font);
        }
        if (!label.MouseDown && !label.MouseMove && !label.Click)
            text_->setAttribute(Qt::WA_TransparentForMouseEvents);
        LabelView::show(Aspect::Caption);
    }

    void changed(Aspect aspect) override
    {
        WidgetView::changed(aspect);
        if (text_ && label_.cut != TextCut::None && (aspect == Aspect::Place || aspect == Aspect::ToolTip))
            show(Aspect::Caption);
    }

    std::optional<int> textHeight(const Text& text, int width) const override
    {
        text_->ensurePolished();
        const QRect room(0, 0, width, QWIDGETSIZE_MAX);
        return text_->fontMetrics().boundingRect(room, Qt::TextWordWrap, breakable(rendered(text))).height();
    }

protected:
    void show(Aspect aspect) override
    {
        if (aspect == Aspect::Colour)
            return showColour();
        if (aspect != Aspect::Caption)
            return WidgetView::show(aspect);
        const QString shown = label_.usesMnemonic ? withoutMnemonic(label_.caption()) : rendered(label_.caption());
        if (label_.cut != TextCut::None)
            showCut(shown);
        else
            text_->setText(label_.wordWrap ? breakable(shown) : shown);
        if (label_.autoSize)
            label_.setWidth(text_->sizeHint().width() * screen().TwipsPerPixelX());
    }

private:
    void showColour()
    {
        const std::int32_t colour = label_.foreColour();
        // The style sheet gives the colour of the role, and would win over a palette.
        text_->setStyleSheet(colour < 0 ? QString() : QStringLiteral("color: ") + QColor(QRgb(colour)).name());
    }
    /// As much of the text as there is room for; the tip has all of it then.
    void showCut(const QString& whole)
    {
        text_->ensurePolished();
        const auto mode = label_.cut == TextCut::Middle ? Qt::ElideMiddle : Qt::ElideRight;
        const QString shown = text_->fontMetrics().elidedText(whole, mode, text_->width());
        text_->setText(shown);
        if (label_.toolTip().empty())
            text_->setToolTip(shown == whole ? QString() : wrappedTip(breakable(whole)));
    }
    Qt::Alignment horizontal() const
    {
        if (label_.alignment == Alignment::Centre)
            return Qt::AlignHCenter;
        return label_.alignment == Alignment::Right ? Qt::AlignRight : Qt::AlignLeft;
    }

    Label& label_;
    QPointer<QLabel> text_;
};

} // namespace

std::unique_ptr<ControlView> makeLabelView(Label& label, FormWidget& window, QWidget* parent)
{
    auto* widget = roleOf(label).figures ? new FigureLabel(parent) : new QLabel(parent);
    // The style looks at the role when the widget is first made visible, so it is set before anything else.
    widget->setProperty("role", QString::fromLatin1(roleOf(label).name));
    return std::make_unique<LabelView>(label, window, widget);
}

} // namespace tandrel
