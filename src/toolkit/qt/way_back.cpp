#include "toolkit/qt/way_back.h"

#include <QGuiApplication>
#include <QPushButton>
#include <QScreen>

namespace tandrel
{

QWidget* makeWayBack(const QString& title, std::function<void()> restore)
{
    auto* button = new QPushButton(title);
    button->setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    button->setObjectName(QStringLiteral("wayBack"));
    button->adjustSize();
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    button->move(screen.left() + 8, screen.bottom() - button->height() - 8);
    QObject::connect(button, &QPushButton::clicked, button, [restore = std::move(restore)] { restore(); });
    button->show();
    return button;
}

} // namespace tandrel
