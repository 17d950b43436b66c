/// Brings the console to the front, and lets it take files, when `tandrel-open` asks for that.
#pragma once

#include "platform/x11/file_calls.h"

#include <QObject>
#include <QTimer>

namespace tandrel
{

/// Made once there is an application object, and gone before it. Watches for the console's window by itself.
class CalledForFiles : public QObject
{
public:
    CalledForFiles();
    ~CalledForFiles() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void answer();

    X11FileCalls calls_;
    QTimer again_;
};

} // namespace tandrel
