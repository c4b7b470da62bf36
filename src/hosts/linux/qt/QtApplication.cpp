#include "hosts/linux/qt/QtApplication.h"

#include "hosts/linux/qt/QtScopedVariable.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <utility>

#include <QApplication>
#include <QWindow>

namespace haloric {

namespace {

constexpr int kNoDisplay = 1;
constexpr std::string_view kConnectionBroke = "The X11 connection broke";

Task displayLostHandler; // Qt hands nothing on to its message handler

void passOn(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (message.startsWith(QLatin1String(kConnectionBroke.data()))) {
        if (displayLostHandler)
            displayLostHandler();
        std::_Exit(kNoDisplay); // Qt would run the destructors of static objects beside running threads
    }
    if (type == QtCriticalMsg || type == QtFatalMsg) // its warnings are for programmers
        std::fprintf(stderr, "haloric: %s\n", qUtf8Printable(message));
}

std::unique_ptr<QApplication> makeApplication()
{
    static char program[] = "haloric";
    static char platformOption[] = "-platform"; // whatever QT_QPA_PLATFORM says
    static char platform[] = "xcb";
    static char nameOption[] = "-name";
    static char name[] = "com.kestrow.haloric";
    static char* arguments[] = {program, platformOption, platform, nameOption, name, nullptr};
    static int argumentCount = 5;
    return std::make_unique<QApplication>(argumentCount, arguments);
}

} // namespace

QtApplication::QtApplication(Task displayLost)
{
    displayLostHandler = std::move(displayLost);
    qInstallMessageHandler(passOn);
    QCoreApplication::setAttribute(Qt::AA_DisableSessionManager);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QCoreApplication::setQuitLockEnabled(false);
    QCoreApplication::setApplicationName(kIdentifier);
    QGuiApplication::setDesktopFileName(kIdentifier);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    {
        // Only while Qt looks at them: programs that this one starts are not to inherit them.
        const QtScopedVariable ownLoop("QT_NO_GLIB", "1");
        const QtScopedVariable withoutOpenGL("QT_XCB_GL_INTEGRATION", "none"); // saves some twenty megabytes
        m_application = makeApplication();
        [[maybe_unused]] const bool asked = QWindow().supportsOpenGL(); // Qt looks when it is asked first
    }
    std::setlocale(LC_NUMERIC, "C"); // Qt has taken over the user's, and numbers are written for files as well
}

QtApplication::~QtApplication()
{
    m_application.reset();
    qInstallMessageHandler(nullptr);
    displayLostHandler = nullptr;
}

} // namespace haloric
