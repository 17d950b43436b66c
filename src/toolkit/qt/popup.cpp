// Popup menus as Qt's.

#include "toolkit/menu.h"
#include "toolkit/press.h"
#include "toolkit/qt/form_widget.h"
#include "toolkit/qt/frame_painter.h"
#include "toolkit/qt/qt_backend.h"

#include <QApplication>
#include <QCursor>
#include <QEventLoop>
#include <QMenu>
#include <QTimer>

#include <optional>

namespace tandrel
{

namespace
{

constexpr int kReleasePollMs = 10;

bool anyButtonHeld()
{
    Pointer& pointer = *services().pointer;
    const bool left = pointer.buttonDown(MouseButton::Left);
    return pointer.buttonDown(MouseButton::Right) || left;
}

/// A menu that came up under a held button would take its release for a choice.
void waitForRelease()
{
    if (!anyButtonHeld())
        return;
    QEventLoop loop;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
        if (!anyButtonHeld())
            loop.quit();
    });
    poll.start(kReleasePollMs);
    loop.exec();
}

/// Where a menu comes up that a key has asked for.
std::optional<QPoint>& placeOfKey()
{
    static std::optional<QPoint> place;
    return place;
}

/// A menu with rounded corners on every screen.
class RoundedMenu : public QMenu
{
public:
    explicit RoundedMenu(const QString& name, QWidget* parent = nullptr) : QMenu(parent)
    {
        setObjectName(name);
        setAttribute(Qt::WA_TranslucentBackground);
        setWindowFlag(Qt::FramelessWindowHint);
    }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QMenu::resizeEvent(event);
        setMask(roundedRegion(rect()));
    }
};

QString textOf(const Menu& entry)
{
    const QString text = rendered(entry.shown.empty() ? entry.caption() : entry.shown);
    // What stands behind the tab has a column of its own.
    return entry.shortcut.empty() ? text : text + QLatin1Char('\t') + rendered(entry.shortcut);
}

void fill(QMenu& menu, const Menu& head, std::map<QAction*, Menu*>& meaning)
{
    for (Menu* entry : head.entries()) {
        if (!entry->visible())
            continue;
        if (entry->caption() == Menu::kSeparator) {
            menu.addSeparator()->setObjectName(QString::fromStdString(entry->name()));
            continue;
        }
        QAction* action = nullptr;
        if (entry->entries().empty()) {
            action = menu.addAction(textOf(*entry));
            action->setCheckable(entry->checked());
            action->setChecked(entry->checked());
            meaning[action] = entry;
        } else {
            auto* below = new RoundedMenu(QString::fromStdString(entry->name()), &menu);
            below->setTitle(textOf(*entry));
            action = menu.addMenu(below);
            fill(*below, *entry, meaning);
        }
        action->setObjectName(QString::fromStdString(entry->name()));
        action->setEnabled(entry->enabled());
    }
}

} // namespace

void QtFormView::showSystemMenu(PixelPoint at)
{
    const auto* qt = dynamic_cast<const QtBackend*>(&backend());
    const BoxTexts texts = qt ? qt->boxTexts() : BoxTexts();
    const auto alive = form_.shared_from_this();
    RoundedMenu menu(QStringLiteral("systemMenu"));
    QAction* smaller = menu.addAction(rendered(texts.minimise));
    smaller->setEnabled((form_.windowWord(style::kWord) & style::kMinButton) != 0);
    const QAction* end = menu.addAction(rendered(texts.close));
    const QAction* chosen = menu.exec({at.x, at.y});
    if (chosen == smaller && alive->isLoaded())
        alive->WindowState = 1;
    else if (chosen == end && alive->isLoaded())
        alive->userClose();
}

QtBackend::PressedByKey::PressedByKey(const QWidget& control)
{
    placeOfKey() = control.mapToGlobal(QPoint(0, control.height()));
}

QtBackend::PressedByKey::PressedByKey(PixelPoint place) { placeOfKey() = QPoint(place.x, place.y); }

QtBackend::PressedByKey::~PressedByKey() { placeOfKey().reset(); }

void QtBackend::withMenusAt(PixelPoint place, const std::function<void()>& task)
{
    const PressedByKey byKey(place);
    task();
}

Menu* QtBackend::popUp(Menu& head)
{
    if (boxesEnded_)
        return nullptr;
    waitForRelease();
    if (boxesEnded_)
        return nullptr;
    std::map<QAction*, Menu*> meaning;
    RoundedMenu menu(QString::fromStdString(head.name()));
    fill(menu, head, meaning);
    Menu* chosen = nullptr;
    connect(&menu, &QMenu::triggered, &menu, [&](QAction* action) {
        chosen = meaning.at(action);
        // Assistive technology chooses an entry and leaves the menu as it is. The one in front is a submenu, if any.
        while (QWidget* up = QApplication::activePopupWidget())
            if (!up->close())
                break;
    });
    menu.exec(placeOfKey().value_or(QCursor::pos()));
    return chosen;
}

} // namespace tandrel
