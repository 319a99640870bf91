#include "appconfig.h"
#include "curveplot.h"
#include "saccadecenterimpl.h"

#include <QAction>
#include <QApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <cstdio>
#include <cstdlib>
#include <random>

/// Edits a saccade file in a saccades browser by a fixed script, for tests that kill it meanwhile:
///
///     saccadeeditor SETTINGS FILE ACTIONS [hash]
///
/// Prints the number of each action, from 0 for the opened file, once it is complete, and then waits for its
/// end. With "hash" it prints behind each number the SHA-256 of what a save would write and of the file's
/// bytes, and ends after the last one.
namespace
{

QByteArray hashOf(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

QByteArray stateHash(const SaccadeDocument& document)
{
    KiroSaccHeader header = document.state().header;
    header.saccades.assign(document.saccades().begin(), document.saccades().end());
    header.blinks.assign(document.blinks().begin(), document.blinks().end());
    return hashOf(QByteArray::fromStdString(header.toBytes()));
}

QByteArray fileHash(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qUtf8Printable(path));
    return hashOf(file.readAll());
}

/// What a user does with the window, the same in each run.
class Script
{
public:
    /// Shows the shortest stretch of time, so that drawing takes little time beside writing.
    explicit Script(SaccadeCenter& window)
        : m_window(window)
    {
        while (m_window.timeWindow().length() > TimeWindow::LeastLength)
            m_window.findChild<QToolButton*>(QStringLiteral("buttonTimeZoomIn"))->click();
    }

    void act()
    {
        constexpr int Weights[] = {6, 6, 4, 2, 2, 1, 3};
        std::discrete_distribution<int> any(std::begin(Weights), std::end(Weights));
        switch (any(m_random)) {
        case 0:
            trigger("actionSaccRemoveCurrent");
            break;
        case 1:
            add();
            break;
        case 2:
            trigger("actionEditUndo");
            break;
        case 3:
            trigger("actionEditRedo");
            break;
        case 4:
            step();
            break;
        case 5:
            trigger("actionFileRedetect");
            break;
        default:
            trigger("actionFileSave");
        }
        QCoreApplication::processEvents();
    }

private:
    /// As a user can: only if it is enabled.
    void trigger(const char* name)
    {
        auto* const action = m_window.findChild<QAction*>(QLatin1String(name));
        if (action->isEnabled())
            action->trigger();
    }

    void step()
    {
        std::uniform_int_distribution<int> steps(1, 20);
        const bool back = m_random() % 2 == 0;
        for (int i = steps(m_random); i > 0; --i)
            trigger(back ? "actionSaccPrev" : "actionSaccNext");
    }

    /// Drags over a chart from some fixation's middle on.
    void add()
    {
        constexpr int LeastFixation = 300;
        const QList<KiroSaccade>& saccades = m_window.document().saccades();
        std::uniform_int_distribution<int> any(1, saccades.size() - 1);
        int next = any(m_random);
        while (saccades[next].main.start - saccades[next - 1].main.end < LeastFixation)
            next = any(m_random);
        const int middle = (saccades[next].main.start + saccades[next - 1].main.end) / 2;
        auto* const scroll = m_window.findChild<QScrollBar*>(QStringLiteral("scrollTime"));
        scroll->setValue(m_window.timeWindow().scrollToCentre(middle));

        auto& plot = *m_window.findChild<CurvePlot*>(QStringLiteral("plotRightVertVelocity"));
        const double seconds = m_window.timeWindow().secondsOf(middle);
        const QPoint from(plot.horzScalePoints(seconds), plot.height() / 2);
        const QPoint to(plot.horzScalePoints(seconds + 0.08), plot.height() / 2);
        QTest::mousePress(&plot, Qt::LeftButton, Qt::ShiftModifier, from);
        for (int x = from.x(); x < to.x(); x += 3) {
            QMouseEvent move(QEvent::MouseMove, QPoint(x, from.y()), plot.mapToGlobal(QPoint(x, from.y())),
                             Qt::NoButton, Qt::LeftButton, Qt::ShiftModifier);
            QApplication::sendEvent(&plot, &move);
        }
        QTest::mouseRelease(&plot, Qt::LeftButton, Qt::ShiftModifier, to);
    }

    SaccadeCenter& m_window;
    std::mt19937 m_random{1};
};

/// A box that no action of the script opens would wait for ever.
void endIfABoxComes()
{
    if (const QWidget* const box = QApplication::activeModalWidget()) {
        std::fprintf(stderr, "unexpected: %s\n", qUtf8Printable(box->windowTitle()));
        std::_Exit(2);
    }
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 4 || !appConfig().setConfigFile(arguments[1]))
        qFatal("usage: saccadeeditor SETTINGS FILE ACTIONS [hash]");
    const QString& path = arguments[2];
    const int actions = arguments[3].toInt();
    const bool hash = arguments.size() > 4;

    QTimer boxes;
    boxes.callOnTimeout(endIfABoxComes);
    boxes.start(1000);
    SaccadeCenter window;
    window.resize(800, 600);
    window.show();
    window.openFile(path);
    QCoreApplication::processEvents();

    Script script(window);
    for (int number = 0; number <= actions; ++number) {
        if (number > 0)
            script.act();
        if (hash) {
            std::printf("%d %s %s\n", number, stateHash(window.document()).constData(),
                        fileHash(path).constData());
        } else {
            std::printf("%d\n", number);
        }
        std::fflush(stdout);
    }
    return hash ? 0 : QApplication::exec();
}
