#include "ui/screens/shell/DisplayFailure.h"

#include <QString>

#include <cstdio>
#include <cstdlib>

namespace {

// The application object tells of what it cannot do without by a fatal message, and there is no other way to be asked.
void endAtFatalMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (type != QtFatalMsg) {
        fprintf(stderr, "%s\n", qUtf8Printable(qFormatLogMessage(type, context, message)));
        return;
    }
    fputs("vesk: no window can be opened: there is no display that can be reached. Start it from a desktop, or set "
          "DISPLAY or"
          " WAYLAND_DISPLAY to one of yours.\n",
        stderr);
    std::_Exit(EXIT_FAILURE);
}

} // namespace

DisplayFailure::DisplayFailure()
    : m_previous(qInstallMessageHandler(endAtFatalMessage))
{
}

DisplayFailure::~DisplayFailure()
{
    qInstallMessageHandler(m_previous);
}
