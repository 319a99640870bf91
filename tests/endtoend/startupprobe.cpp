#include "appconfig.h"
#include "kiroutils.h"
#include "startup.h"

#include <QApplication>
#include <QDebug>
#include <QLocale>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <thread>

/// Runs the program's start-up with an interface that plays the scenario named by the environment variable
/// KIRO_PROBE and prints to standard output what is to be seen.
namespace
{

void print(const char* name, const QString& value)
{
    std::printf("%s=%s\n", name, value.toLocal8Bit().constData());
    std::fflush(stdout);
}

void printSettings()
{
    const AppConfig& config = appConfig();
    print("config", config.configFile());
    print("signals", config.signalsFile());
    print("log", config.logFile());
    print("developer", QString::number(config.isDeveloperVersion()));
    print("locale", QLocale().name());
    print("arguments", QCoreApplication::arguments().mid(1).join(QLatin1Char('|')));
    print("sharp", QString::number(QCoreApplication::testAttribute(Qt::AA_EnableHighDpiScaling) &&
                                   QCoreApplication::testAttribute(Qt::AA_UseHighDpiPixmaps)));
}

void logAllKinds()
{
    qDebug("a debug message");
    qInfo("an info message");
    qWarning("a warning");
    qCritical("a critical message");
    qDebug("two\nlines");
}

/// Prints each box and runs `whileOpen`, once; then presses its OK button unless that said no.
class BoxAnswerer : public QObject
{
public:
    explicit BoxAnswerer(std::function<bool()> whileOpen = [] { return true; })
        : m_whileOpen(std::move(whileOpen))
    {
        m_timer.callOnTimeout(this, [this] { answer(); });
        m_timer.start(20);
    }

private:
    void answer()
    {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || box == m_seen)
            return;
        m_seen = box;
        print("box", box->windowTitle());
        print("text", box->text());
        const bool asAgreed = box->icon() == QMessageBox::Critical && box->textFormat() == Qt::PlainText &&
                              box->standardButtons() == QMessageBox::Ok && !box->parentWidget();
        print("critical, plain text, OK only, without parent", QString::number(asAgreed));
        if (m_whileOpen())
            box->button(QMessageBox::Ok)->click();
    }

    std::function<bool()> m_whileOpen;
    QPointer<QMessageBox> m_seen;
    QTimer m_timer;
};

void logOnAThread()
{
    std::thread([] { qDebug("from a thread"); }).join();
}

/// Lets a fatal error come from the event loop of a program that ends with its last window.
void failSoon()
{
    QObject::connect(qApp, &QGuiApplication::lastWindowClosed, qApp, &QCoreApplication::quit);
    QTimer::singleShot(0, [] { KiroError::fatalError("cannot read <b>sample</b> %1"); });
}

struct Farewell : QObject
{
    ~Farewell() override
    {
        print("interface destroyed, application there", QString::number(qApp != nullptr));
    }
};

std::unique_ptr<QObject> quitAtOnce()
{
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    return std::make_unique<Farewell>();
}

using Scenario = std::unique_ptr<QObject> (*)();

const std::map<std::string, Scenario> Scenarios{
    {"settings",
     [] {
         printSettings();
         return quitAtOnce();
     }},
    {"messages",
     [] {
         logAllKinds();
         return quitAtOnce();
     }},
    {"close",
     []() -> std::unique_ptr<QObject> {
         auto window = std::make_unique<QWidget>();
         window->show();
         QTimer::singleShot(0, window.get(), &QWidget::close);
         return window;
     }},
    {"fatal",
     []() -> std::unique_ptr<QObject> {
         failSoon();
         return std::make_unique<BoxAnswerer>();
     }},
    {"fatal in the factory",
     []() -> std::unique_ptr<QObject> {
         auto* const answerer = new BoxAnswerer;
         KiroError::fatalError("too early");
         return std::unique_ptr<QObject>(answerer);
     }},
    {"log while a box is open",
     []() -> std::unique_ptr<QObject> {
         failSoon();
         return std::make_unique<BoxAnswerer>([] {
             qDebug("from the event loop");
             logOnAThread();
             return true;
         });
     }},
    {"fatal again while a box is open",
     []() -> std::unique_ptr<QObject> {
         failSoon();
         return std::make_unique<BoxAnswerer>([] {
             QTimer::singleShot(0, [] { KiroError::fatalError("once more"); });
             return false;
         });
     }},
    {"fatal on a thread",
     []() -> std::unique_ptr<QObject> {
         std::thread([] { KiroError::fatalError("on a thread"); }).join();
         return nullptr;
     }},
};

/// Logs when the static objects of the program are destroyed, long after main().
struct LateMessage
{
    ~LateMessage()
    {
        if (qgetenv("KIRO_PROBE") == "messages")
            qDebug("a late message");
    }
};
const LateMessage lateMessage;

} // namespace

int main(int argc, char** argv)
{
    return runKiroManager(argc, argv, Scenarios.at(qgetenv("KIRO_PROBE").toStdString()));
}
