#include "toolkit/form.h"
#include "toolkit/qt/drawings.h"
#include "toolkit/qt/focus_ring.h"
#include "toolkit/qt/kinds.h"
#include "toolkit/qt/palette.h"
#include "toolkit/qt/qt_backend.h"
#include "toolkit/screen.h"

#include <QKeyEvent>
#include <QPainter>

namespace tandrel
{

namespace
{

/// The drawing under a button, and how much of its width the button's own drawing takes.
struct PlateLook {
    const char* drawing;
    double iconPart;
};
constexpr std::array<PlateLook, 4> kPlates{
    {{nullptr, 1}, {"plate_round", 0.56}, {"plate_play", 0.46}, {"plate_lead", 0.54}}};

constexpr double kDisabled = 0.35;
constexpr double kResting = 0.82;

bool pressKey(const QKeyEvent* key)
{
    return key->key() == Qt::Key_Space || key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
}

/// Paints a drawing of the skin; one that is a button lies on its plate, lifted under the pointer, sunk while pressed.
class ImageWidget : public QWidget
{
public:
    ImageWidget(Image& image, QWidget* parent) : QWidget(parent), image_(image)
    {
        setAttribute(Qt::WA_Hover, image.Click != nullptr);
        if (image.tabStop)
            setFocusPolicy(Qt::TabFocus);
    }

protected:
    void paintEvent(QPaintEvent*) override;
    void keyPressEvent(QKeyEvent* key) override;
    void keyReleaseEvent(QKeyEvent* key) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool pressed() const { return image_.borderStyle() == 1; }
    const PlateLook& plate() const { return kPlates[static_cast<std::size_t>(image_.plate)]; }
    void paintPlate(QPainter& painter) const;
    void paintPicture(QPainter& painter) const;
    /// A press that a key began ends without a click.
    void letGo();

    Image& image_;
    FocusRing ring_{*this};
    bool keyDown_ = false;
};

void ImageWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(kDisabled);
    if (pressed())
        painter.translate(0, 1);
    if (image_.plate != Plate::None)
        paintPlate(painter);
    paintPicture(painter);
    ring_.paint(painter, image_.plate == Plate::None ? FocusRing::Shape::Box : FocusRing::Shape::Circle);
}

void ImageWidget::paintPlate(QPainter& painter) const
{
    QString name = QString::fromLatin1(plate().drawing);
    if (pressed())
        name += QLatin1String("_pressed");
    else if (isEnabled() && underMouse())
        name += QLatin1String("_hover");
    painter.drawPixmap(0, 0, drawing(name, size(), devicePixelRatioF()));
}

void ImageWidget::paintPicture(QPainter& painter) const
{
    if (image_.picture().empty())
        return;
    const bool plain = image_.plate == Plate::None;
    if (plain && image_.dimmedAtRest && isEnabled() && image_.Click && !underMouse() && !pressed())
        painter.setOpacity(kResting);
    QSize size = this->size() * plate().iconPart;
    if (image_.pictureWidth > 0) {
        size.setWidth(pixelsX(image_.pictureWidth));
        painter.drawPixmap(0, 0, drawing(QString::fromStdString(image_.picture()), size, devicePixelRatioF()));
        return;
    }
    painter.drawPixmap((width() - size.width()) / 2, (height() - size.height()) / 2,
                       drawing(QString::fromStdString(image_.picture()), size, devicePixelRatioF()));
}

void ImageWidget::keyPressEvent(QKeyEvent* key)
{
    if (!pressKey(key))
        return QWidget::keyPressEvent(key);
    // A held key repeats, which is no other press: nor one for the default button, where a key left alone would go.
    if (key->isAutoRepeat())
        return;
    keyDown_ = true;
    image_.userMouseDown({mouse::kLeft, 0, 0, 0});
}

void ImageWidget::keyReleaseEvent(QKeyEvent* key)
{
    if (!pressKey(key) || key->isAutoRepeat() || !keyDown_)
        return QWidget::keyReleaseEvent(key);
    const auto form = image_.form().shared_from_this();
    Image& image = image_;
    const QtBackend::PressedByKey byKey(*this);
    letGo();
    if (form->isLoaded())
        image.userClick();
}

void ImageWidget::letGo()
{
    keyDown_ = false;
    image_.userMouseUp({mouse::kLeft, 0, 0, 0});
}

void ImageWidget::focusInEvent(QFocusEvent* event) { ring_.focusIn(*event); }

void ImageWidget::focusOutEvent(QFocusEvent*)
{
    if (keyDown_)
        letGo();
    ring_.focusOut();
}

} // namespace

std::unique_ptr<ControlView> makeImageView(Image& image, FormWidget& window, QWidget* parent)
{
    return std::make_unique<WidgetView>(image, window, new ImageWidget(image, parent));
}

} // namespace tandrel
