#include "hosts/linux/qt/QtApplication.h"

#include "foundation/ProductIdentity.h"
#include "hosts/linux/qt/OptionalLog.h"
#include "hosts/posix/PosixStandardError.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QByteArray>
#include <QSocketNotifier>
#include <QWindow>

namespace haloric {

namespace {

constexpr int kNoDisplay = 1;
constexpr std::string_view kConnectionBroke = "The X11 connection broke";

Task displayLostHandler; // Qt passes no context to its message handler

// What libxcb writes while Qt connects to the server.
std::optional<PosixStandardError> startOutput;

[[noreturn]] void endWithoutStart(const QString& message)
{
    const std::string refusal = startOutput ? startOutput->end() : std::string();
    const std::string reason = refusal.empty() ? message.section(QLatin1Char('\n'), 0, 0).toStdString() : refusal;
    std::fprintf(stderr, "haloric: the user interface does not start on this display: %s\n", reason.c_str());
    std::_Exit(kNoDisplay);
}

// Sets a variable of the process's environment for its own lifetime. Use it before the first thread starts.
class ScopedVariable {
public:
    ScopedVariable(const char* name, const QByteArray& value) : m_name(name)
    {
        if (qEnvironmentVariableIsSet(name))
            m_before = qgetenv(name);
        qputenv(name, value);
    }

    ~ScopedVariable()
    {
        if (m_before)
            qputenv(m_name, *m_before);
        else
            qunsetenv(m_name);
    }

    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    const char* m_name;
    std::optional<QByteArray> m_before;
};

void passOn(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (message.startsWith(QLatin1String(kConnectionBroke.data()))) {
        startOutput.reset();
        if (displayLostHandler)
            displayLostHandler();
        std::_Exit(kNoDisplay); // Qt would run static destructors while other threads run
    }
    if (type == QtFatalMsg)
        endWithoutStart(message);
    static const bool isVerbose = qEnvironmentVariable(OptionalLog::kVariable) == QLatin1String("1");
    if (isVerbose)
        std::fprintf(stderr, "haloric: %s\n", qUtf8Printable(message));
}

std::unique_ptr<QApplication> makeApplication()
{
    static char program[] = "haloric";
    static char platformOption[] = "-platform"; // overrides QT_QPA_PLATFORM
    static char platform[] = "xcb";
    static char nameOption[] = "-name";
    static std::string name(ProductIdentity::kIdentifier);
    static char* arguments[] = {program, platformOption, platform, nameOption, name.data(), nullptr};
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
    QCoreApplication::setApplicationName(ProductIdentity::kIdentifier);
    QGuiApplication::setDesktopFileName(ProductIdentity::kIdentifier);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    {
        // Only while Qt reads them: child processes must not inherit them.
        const ScopedVariable ownLoop("QT_NO_GLIB", "1");
        const ScopedVariable withoutOpenGL("QT_XCB_GL_INTEGRATION", "none"); // saves about 20 MB
        startOutput.emplace();
        m_application = makeApplication();
        startOutput.reset();
        [[maybe_unused]] const bool isSupported = QWindow().supportsOpenGL(); // Qt reads the variable now
    }
    std::setlocale(LC_NUMERIC, "C"); // Qt has set the user's locale; numbers in files need a fixed one
}

QtApplication::~QtApplication()
{
    m_application.reset();
    qInstallMessageHandler(nullptr);
    displayLostHandler = nullptr;
}

QtEventLoop::QtEventLoop(LinuxRunLoop& runLoop)
    : m_runLoop(runLoop),
      m_readable(std::make_unique<QSocketNotifier>(runLoop.pollableDescriptor(), QSocketNotifier::Read))
{
    QObject::connect(m_readable.get(), &QSocketNotifier::activated, m_readable.get(),
                     [this] { m_runLoop.turn(Seconds(0)); });
    // Qt's handlers may have queued requests, set timers or read events ahead.
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, m_readable.get(),
                     [this] { m_runLoop.prepareToWait(); });
}

QtEventLoop::~QtEventLoop() = default;

void QtEventLoop::run() { QCoreApplication::exec(); }

void QtEventLoop::stop() { QCoreApplication::exit(); }

} // namespace haloric
