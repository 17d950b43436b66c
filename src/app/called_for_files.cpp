#include "app/called_for_files.h"

#include "console/frm_media.h"
#include "console/holders.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace tandrel
{

namespace
{
// How soon a console that is busy is asked again.
constexpr int kAgainMs = 100;
} // namespace

CalledForFiles::CalledForFiles() : calls_([this] { again_.start(0); })
{
    again_.setSingleShot(true);
    connect(&again_, &QTimer::timeout, this, [this] { answer(); });
    qApp->installEventFilter(this);
}

CalledForFiles::~CalledForFiles() = default;

bool CalledForFiles::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show && watched->isWidgetType() && watched->objectName() == "frmMedia")
        calls_.listenOn(static_cast<WindowHandle>(static_cast<QWidget*>(watched)->winId()));
    return false;
}

void CalledForFiles::answer()
{
    if (!Loaded<class frmMedia>())
        return;
    // What waits for the user has its caller in the middle of its work.
    const bool waits = QApplication::activeModalWidget() || QApplication::activePopupWidget();
    if (waits || !frmMedia().takeWhatWasLeft())
        again_.start(kAgainMs);
}

} // namespace tandrel
