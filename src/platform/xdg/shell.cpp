#include "platform/xdg/shell.h"

#include <QProcess>

namespace tandrel
{

void XdgShell::open(const std::string& target)
{
    QProcess::startDetached(QStringLiteral("xdg-open"), {QString::fromStdString(target)});
}

} // namespace tandrel
