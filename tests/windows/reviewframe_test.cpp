#include "reviewframefixture.h"

#include "openevents.h"
#include "signalitemdelegate.h"

#include <QAccessible>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QProgressDialog>

namespace
{

TEST_F(ReviewFrameTest, StartsEmpty)
{
    EXPECT_EQ(window().windowTitle(), QStringLiteral("Signals browser"));
    EXPECT_EQ(window().size(), QSize(1301, 761));
    EXPECT_TRUE(find<QLabel>("labelHint").isVisible());
    EXPECT_FALSE(strips().isVisible());
    EXPECT_EQ(label("labelSelection"), QStringLiteral("Selection range 0 s"));
    for (const char* disabled :
         {"buttonSave", "frameSettings", "rangeSelector", "buttonZoomIn", "buttonZoomOut"})
        EXPECT_FALSE(find<QWidget>(disabled).isEnabled()) << disabled;
    for (const char* enabled : {"buttonLoad", "buttonLabels", "buttonSetup", "buttonClose"})
        EXPECT_TRUE(find<QWidget>(enabled).isEnabled()) << enabled;
    EXPECT_EQ(window().mode(), InteractionMode::Arrow);
    EXPECT_TRUE(find<QToolButton>("buttonModeArrow").isChecked());
}

TEST_F(ReviewFrameTest, ScreenReadersAreToldWhatTheToolsAre)
{
    QAccessible::setActive(true);
    const auto roleOf = [this](const char* name) {
        return QAccessible::queryAccessibleInterface(&find<QWidget>(name))->role();
    };
    // A widget that is made in a disabled one is asked for its role too early, and stays without.
    EXPECT_EQ(roleOf("buttonSetupLines"), QAccessible::CheckBox);
    EXPECT_EQ(roleOf("buttonModeZoom"), QAccessible::CheckBox);
    EXPECT_EQ(roleOf("buttonFavoriteViewAdd"), QAccessible::Button);
    EXPECT_EQ(roleOf("spinDataWidth"), QAccessible::SpinBox);
    EXPECT_EQ(roleOf("comboFavoriteViews"), QAccessible::ComboBox);
    QAccessible::setActive(false);
}

TEST_F(ReviewFrameTest, ShowsAllOfANewFile)
{
    open();
    EXPECT_EQ(window().windowTitle(), QStringLiteral("Signals browser - ") + path("eye.kiro"));
    EXPECT_EQ(window().recording().currentFile, path("eye.kiro"));
    EXPECT_TRUE(strips().isVisible());
    EXPECT_EQ(strips().plotCount, 3);
    EXPECT_EQ(shown(), "111");
    EXPECT_EQ(selected(), "111");
    EXPECT_EQ(selector().totalFrom(), 0.0);
    EXPECT_EQ(selector().totalTo(), 8.0);
    EXPECT_EQ(selector().selectorRange(), 8.0);
    EXPECT_EQ(selector().selectorPosition(), 4.0);
    EXPECT_EQ(strips().horzMin, 0.0);
    EXPECT_EQ(strips().horzMax, 8.0);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(strips().plot(i)->dataSize(), SampleCount);
        EXPECT_EQ(strips().plot(i)->rangeStart(), 0);
        EXPECT_EQ(strips().plot(i)->rangeCount(), SampleCount);
        EXPECT_EQ(strips().plot(i)->hasCalib, i < 2);
        EXPECT_EQ(strips().plot(i)->useCalib, i < 2);
    }
    EXPECT_EQ(label("labelSelection"), QStringLiteral("Position 4.000 s"));
    EXPECT_EQ(label("labelStatus"), QStringLiteral("New selector position 4.000 s with range 8.000 s"));
    EXPECT_EQ(list().item(1)->toolTip(), QStringLiteral("second"));
    EXPECT_EQ(views().count(), 1);
    EXPECT_EQ(views().currentText(), QStringLiteral("Custom view"));
    EXPECT_FALSE(find<QWidget>("buttonSave").isEnabled());
}

TEST_F(ReviewFrameTest, CtrlDragZoomsInAnyMode)
{
    open();
    drag(2.0, 4.0, Qt::ControlModifier);
    EXPECT_NEAR(selector().selectorRange(), 2.0, 0.05);
    EXPECT_NEAR(selector().selectorPosition(), 3.0, 0.05);
    EXPECT_EQ(window().mode(), InteractionMode::Arrow);
    EXPECT_EQ(strips().userMode, UserModeArrow);
}

} // namespace
