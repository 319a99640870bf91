// Which signals a signals browser shows, and how they look.

#include "reviewframefilesfixture.h"

#include <QSpinBox>
#include <QSplitter>
#include <QStyleOptionViewItem>

#include <cmath>

namespace
{

class ReviewFrameViewsTest : public ReviewFrameFilesTest
{
protected:
    void SetUp() override
    {
        ReviewFrameFilesTest::SetUp();
        open();
    }

    QPoint placeOf(int row) { return list().visualItemRect(list().item(row)).center(); }
    void clickSignal(int row)
    {
        QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::NoModifier, placeOf(row));
    }
    void doubleClickSignal(int row)
    {
        clickSignal(row);
        QTest::mouseDClick(list().viewport(), Qt::LeftButton, Qt::NoModifier, placeOf(row));
    }

    QStringList viewNames()
    {
        QStringList names;
        for (int i = 0; i < views().count(); ++i)
            names << views().itemText(i);
        return names;
    }
    /// Asks for one more view, and enters this name.
    void addView(const QString& name, ModalAnswers& answers)
    {
        answers.answer([name](QWidget* dialog) {
            auto* const input = qobject_cast<QInputDialog*>(dialog);
            ASSERT_TRUE(input);
            EXPECT_EQ(input->labelText(), QStringLiteral("Enter new favorite signals view name"));
            EXPECT_EQ(input->textValue(), QString());
            input->setTextValue(name);
            input->accept();
        });
        click("buttonFavoriteViewAdd");
    }
    void chooseView(int steps)
    {
        for (int i = 0; i < std::abs(steps); ++i)
            QTest::keyClick(&views(), steps > 0 ? Qt::Key_Down : Qt::Key_Up);
    }

    /// What a settings file keeps under this key.
    QString kept(const char* key) const
    {
        IniStore store;
        store.load(path("settings.ini"));
        return store.value(ReviewFrame::section(), QLatin1String(key), QStringLiteral("absent"));
    }
};

TEST_F(ReviewFrameViewsTest, ClicksInTheListShowAndHide)
{
    clickSignal(1);
    EXPECT_EQ(selected(), "101");
    EXPECT_EQ(shown(), "101");
    clickSignal(0);
    EXPECT_EQ(shown(), "001");
    clickSignal(2);
    EXPECT_EQ(shown(), "000");
    EXPECT_EQ(selected(), "000");
    clickSignal(1);
    EXPECT_EQ(shown(), "010");
    EXPECT_EQ(selected(), "010");
    EXPECT_EQ(strips().getScreenPoint(0, QPointF(4.0, 0.0)), QPoint(-1, -1));
    EXPECT_NE(strips().getScreenPoint(1, QPointF(4.0, 0.0)), QPoint(-1, -1));
}

TEST_F(ReviewFrameViewsTest, ADoubleClickInTheListShowsOneAlone)
{
    doubleClickSignal(1);
    EXPECT_EQ(shown(), "010");
    EXPECT_EQ(selected(), "010");
    doubleClickSignal(2);
    EXPECT_EQ(shown(), "001");
    EXPECT_EQ(selected(), "001");
}

TEST_F(ReviewFrameViewsTest, TheListLeavesRoomForFiveBlanks)
{
    const QFontMetrics metrics = list().fontMetrics();
    EXPECT_EQ(list().minimumWidth(),
              list().sizeHintForColumn(0) + 5 * metrics.horizontalAdvance(QLatin1Char(' ')));
}

TEST_F(ReviewFrameViewsTest, AViewIsKeptAndActivated)
{
    clickSignal(1);
    {
        ModalAnswers answers;
        addView(QStringLiteral("pair"), answers);
    }
    EXPECT_EQ(viewNames(), QStringList({QStringLiteral("Custom view"), QStringLiteral("pair")}));
    EXPECT_EQ(views().currentIndex(), 1);
    EXPECT_EQ(shown(), "101");
    chooseView(-1);
    EXPECT_EQ(views().currentText(), QStringLiteral("Custom view"));
    EXPECT_EQ(shown(), "111");
    EXPECT_EQ(selected(), "111");
    clickSignal(0);
    chooseView(1);
    EXPECT_EQ(shown(), "101");
    EXPECT_EQ(selected(), "101");
    closeWindow();
    EXPECT_EQ(kept("views_count"), QStringLiteral("1"));
    EXPECT_EQ(kept("view_0"), QStringLiteral("pair"));
    EXPECT_EQ(kept("view_allsignals_0"), QStringLiteral("first<<;;;>>second<<;;;>>third"));
    EXPECT_EQ(kept("view_viewsignals_0"), QStringLiteral("first<<;;;>>third"));
}

TEST_F(ReviewFrameViewsTest, AnEmptyNameOrNoneAddsNoView)
{
    ModalAnswers answers;
    addView(QString(), answers);
    EXPECT_EQ(viewNames(), QStringList(QStringLiteral("Custom view")));
    answers.reject();
    click("buttonFavoriteViewAdd");
    EXPECT_EQ(viewNames(), QStringList(QStringLiteral("Custom view")));
    EXPECT_EQ(answers.seen().size(), 2);
}

TEST_F(ReviewFrameViewsTest, NamesOfViewsComeOnce)
{
    clickSignal(1);
    ModalAnswers answers;
    addView(QStringLiteral("pair"), answers);
    clickSignal(0);
    for (const char* name : {"pair", "Custom view"}) {
        answers.answer([name](QWidget* dialog) {
            qobject_cast<QInputDialog*>(dialog)->setTextValue(QLatin1String(name));
            qobject_cast<QInputDialog*>(dialog)->accept();
        });
        answers.press(QMessageBox::Ok);
        click("buttonFavoriteViewAdd");
        EXPECT_EQ(answers.seen().last(),
                  window().windowTitle() +
                      QStringLiteral("|New favorite signals view name must be unique. Please try again."));
        EXPECT_EQ(viewNames(), QStringList({QStringLiteral("Custom view"), QStringLiteral("pair")}));
    }
    closeWindow();
    EXPECT_EQ(kept("views_count"), QStringLiteral("1"));
    EXPECT_EQ(kept("view_viewsignals_0"), QStringLiteral("first<<;;;>>third"));
}

TEST_F(ReviewFrameViewsTest, TheCustomViewIsNotRemoved)
{
    ModalAnswers answers;
    answers.press(QMessageBox::Ok);
    click("buttonFavoriteViewRemove");
    EXPECT_EQ(answers.seen(), QStringList(window().windowTitle() +
                                          QStringLiteral("|Cannot remove default favorite signals view!")));
    EXPECT_EQ(viewNames(), QStringList(QStringLiteral("Custom view")));
}

TEST_F(ReviewFrameViewsTest, TheChosenViewIsRemoved)
{
    ModalAnswers answers;
    addView(QStringLiteral("all"), answers);
    clickSignal(1);
    addView(QStringLiteral("pair"), answers);
    chooseView(-1);
    EXPECT_EQ(views().currentText(), QStringLiteral("all"));
    click("buttonFavoriteViewRemove");
    EXPECT_EQ(viewNames(), QStringList({QStringLiteral("Custom view"), QStringLiteral("pair")}));
    EXPECT_EQ(shown(), "111");
    EXPECT_EQ(views().currentText(), QStringLiteral("Custom view"));
    closeWindow();
    EXPECT_EQ(kept("views_count"), QStringLiteral("1"));
    EXPECT_EQ(kept("view_0"), QStringLiteral("pair"));
}

TEST_F(ReviewFrameViewsTest, TheWidthOfTheCurvesIsKept)
{
    auto& spin = find<QSpinBox>("spinDataWidth");
    EXPECT_EQ(spin.value(), 1);
    QTest::keyClick(&spin, Qt::Key_Up);
    QTest::keyClick(&spin, Qt::Key_Up);
    EXPECT_EQ(spin.value(), 3);
    EXPECT_EQ(strips().dataPen().width(), 3);
    closeWindow();
    EXPECT_EQ(kept("scheme_data_0").section(QLatin1Char(','), 3, 3), QStringLiteral("3"));
    open();
    EXPECT_EQ(find<QSpinBox>("spinDataWidth").value(), 3);
    EXPECT_EQ(strips().dataPen().width(), 3);
    // One is the thinnest line there is, whatever the screen.
    QTest::keyClick(&find<QSpinBox>("spinDataWidth"), Qt::Key_Down);
    QTest::keyClick(&find<QSpinBox>("spinDataWidth"), Qt::Key_Down);
    EXPECT_EQ(strips().dataPen().width(), 0);
    closeWindow();
    EXPECT_EQ(kept("scheme_data_0").section(QLatin1Char(','), 3, 3), QStringLiteral("0"));
}

TEST_F(ReviewFrameViewsTest, LinesAndGridsBelongToTheSchemeInForce)
{
    EXPECT_TRUE(find<QToolButton>("buttonSetupLines").isChecked());
    const QImage before = strips().grab().toImage();
    click("buttonSetupLines");
    EXPECT_EQ(strips().scheme().drawStyle(), MultiPlotScheme::Points);
    const QImage points = strips().grab().toImage();
    EXPECT_NE(points, before);
    click("buttonSetupHorzGrid");
    EXPECT_FALSE(strips().scheme().horzGrid());
    EXPECT_TRUE(strips().scheme().vertGrid());
    const QImage noTimes = strips().grab().toImage();
    EXPECT_NE(noTimes, points);
    click("buttonSetupVertGrid");
    EXPECT_FALSE(strips().scheme().vertGrid());
    EXPECT_NE(strips().grab().toImage(), noTimes);
    closeWindow();
    EXPECT_EQ(kept("current_multiplot_scheme"), QStringLiteral("MultiPlot default scheme"));
    EXPECT_EQ(kept("scheme_name_0"), QStringLiteral("MultiPlot default scheme"));
    EXPECT_EQ(kept("scheme_drawstyle_0"), QStringLiteral("points"));
    EXPECT_EQ(kept("scheme_horzgrid_0"), QStringLiteral("0"));
    EXPECT_EQ(kept("scheme_vertgrid_0"), QStringLiteral("0"));
    open();
    for (const char* toggle : {"buttonSetupLines", "buttonSetupHorzGrid", "buttonSetupVertGrid"}) {
        EXPECT_FALSE(find<QToolButton>(toggle).isChecked()) << toggle;
        click(toggle);
    }
    strips().setFocus();
    EXPECT_EQ(strips().grab().toImage(), before);
}

TEST_F(ReviewFrameViewsTest, OnlyTheSchemeInForceChanges)
{
    closeWindow();
    QFile::remove(path("settings.ini"));
    writeSection("settings.ini", ReviewFrame::section(),
                 {QStringLiteral("schemes_count=2"), QStringLiteral("scheme_name_0=day"),
                  QStringLiteral("scheme_name_1=night"), QStringLiteral("scheme_bkg_1=1,2,3"),
                  QStringLiteral("current_multiplot_scheme=night")});
    open();
    EXPECT_EQ(strips().bkgColor, QColor(1, 2, 3));
    click("buttonSetupLines");
    QTest::keyClick(&find<QSpinBox>("spinDataWidth"), Qt::Key_Up);
    closeWindow();
    EXPECT_EQ(kept("scheme_drawstyle_0"), QStringLiteral("lines"));
    EXPECT_EQ(kept("scheme_drawstyle_1"), QStringLiteral("points"));
    EXPECT_NE(kept("scheme_data_0").section(QLatin1Char(','), 3, 3), QStringLiteral("2"));
    EXPECT_EQ(kept("scheme_data_1").section(QLatin1Char(','), 3, 3), QStringLiteral("2"));
    EXPECT_EQ(kept("scheme_bkg_1"), QStringLiteral("1,2,3"));
    EXPECT_EQ(kept("current_multiplot_scheme"), QStringLiteral("night"));
}

QPalette darkPalette()
{
    QPalette dark(QColor(40, 42, 44), QColor(50, 52, 54));
    dark.setColor(QPalette::Base, QColor(20, 21, 22));
    dark.setColor(QPalette::Text, QColor(230, 231, 232));
    return dark;
}

TEST_F(ReviewFrameViewsTest, TheColoursFollowADarkDesktop)
{
    const QPalette light = window().palette();
    const MultiPlotScheme day = strips().scheme();
    const QColor selectorBase = selector().palette().color(QPalette::Base);
    EXPECT_EQ(selectorBase, QColor(Qt::white));
    window().setPalette(darkPalette());
    EXPECT_EQ(strips().bkgColor, QColor(20, 21, 22));
    EXPECT_EQ(strips().frgPen().color(), QColor(230, 231, 232));
    EXPECT_GT(strips().dataPen().color().lightness(), day.data().color().lightness());
    EXPECT_EQ(selector().palette().color(QPalette::Base), QColor(20, 21, 22));
    // What is kept are the colours of the scheme.
    click("buttonSetupLines");
    EXPECT_EQ(strips().bkgColor, QColor(20, 21, 22));
    window().setPalette(light);
    EXPECT_EQ(strips().bkgColor, day.bkg());
    EXPECT_EQ(strips().dataPen(), day.data());
    EXPECT_EQ(strips().scheme().drawStyle(), MultiPlotScheme::Points);
    EXPECT_EQ(selector().palette().color(QPalette::Base), selectorBase);
    window().setPalette(darkPalette());
    closeWindow();
    const QColor bkg = day.bkg();
    EXPECT_EQ(kept("scheme_bkg_0"),
              QStringLiteral("%1,%2,%3").arg(bkg.red()).arg(bkg.green()).arg(bkg.blue()));
}

/// The least contrast that shapes need to be seen.
constexpr double ShapeContrast = 3.0;

double luminance(const QColor& color)
{
    const auto linear = [](double share) {
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

TEST_F(ReviewFrameViewsTest, AnEmptyCheckBoxIsSeenOnADarkDesktop)
{
    open();
    window().setPalette(darkPalette());
    list().item(1)->setSelected(false);
    QStyleOptionViewItem item;
    item.initFrom(&list());
    item.rect = list().visualItemRect(list().item(1));
    item.features = QStyleOptionViewItem::HasCheckIndicator;
    const QRect box = list().style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &item, &list());
    ASSERT_FALSE(box.isEmpty());
    const QImage picture = list().viewport()->grab().toImage();
    const QPoint centre = box.center();
    const double inside = luminance(picture.pixelColor(centre));
    for (const QPoint& edge : {QPoint(centre.x(), box.top()), QPoint(centre.x(), box.bottom()),
                               QPoint(box.left(), centre.y()), QPoint(box.right(), centre.y())}) {
        const double frame = luminance(picture.pixelColor(edge));
        EXPECT_GT((frame + 0.05) / (inside + 0.05), ShapeContrast);
    }
}

TEST_F(ReviewFrameViewsTest, AToolThatIsDownIsSeenOnADarkDesktop)
{
    const auto fill = [this](const char* button) {
        const QImage picture = find<QWidget>(button).grab().toImage();
        return luminance(picture.pixelColor(4, picture.height() / 2)) + 0.05;
    };
    window().setPalette(darkPalette());
    ASSERT_TRUE(find<QToolButton>("buttonModeArrow").isChecked());
    constexpr double SeenContrast = 1.5;
    constexpr double TextContrast = 4.5;
    EXPECT_GT(fill("buttonModeArrow") / fill("buttonModeZoom"), SeenContrast);
    EXPECT_GT((luminance(darkPalette().color(QPalette::ButtonText)) + 0.05) / fill("buttonModeArrow"),
              TextContrast);
    click("buttonModeZoom");
    EXPECT_GT(fill("buttonModeZoom") / fill("buttonModeArrow"), SeenContrast);
    // On a light desktop the style knows what to do.
    window().setPalette(QPalette());
    EXPECT_EQ(find<QWidget>("buttonModeZoom").palette().color(QPalette::Button),
              window().palette().color(QPalette::Button));
}

TEST_F(ReviewFrameViewsTest, AChosenSchemeStaysOnADarkDesktop)
{
    closeWindow();
    QFile::remove(path("settings.ini"));
    writeSection("settings.ini", ReviewFrame::section(),
                 {QStringLiteral("schemes_count=1"), QStringLiteral("scheme_name_0=mine"),
                  QStringLiteral("scheme_bkg_0=250,240,230"), QStringLiteral("range_bkg_color=9,8,7")});
    open();
    window().setPalette(darkPalette());
    EXPECT_EQ(strips().bkgColor, QColor(250, 240, 230));
    EXPECT_EQ(strips().frgPen(), MultiPlotScheme().frg());
    EXPECT_EQ(selector().palette().color(QPalette::Base), QColor(9, 8, 7));
}

TEST_F(ReviewFrameViewsTest, TheWidthOfTheListIsKept)
{
    auto& splitter = find<QSplitter>("splitterContent");
    QWidget* const handle = splitter.handle(1);
    const QPoint middle = handle->rect().center();
    const int before = splitter.sizes()[0];
    const auto send = [handle](QEvent::Type type, const QPoint& place, Qt::MouseButtons buttons) {
        QMouseEvent event(type, place, handle->mapToGlobal(place),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, Qt::NoModifier);
        QApplication::sendEvent(handle, &event);
    };
    send(QEvent::MouseButtonPress, middle, Qt::LeftButton);
    send(QEvent::MouseMove, middle + QPoint(100, 0), Qt::LeftButton);
    send(QEvent::MouseButtonRelease, middle, Qt::NoButton);
    EXPECT_EQ(splitter.sizes()[0], before + 100);
    closeWindow();
    EXPECT_EQ(kept("list_width"), QString::number(before + 100));
    open();
    EXPECT_EQ(find<QSplitter>("splitterContent").sizes()[0], before + 100);
    // The strips get all that the window grows by.
    window().resize(window().width() + 200, window().height());
    QCoreApplication::processEvents();
    EXPECT_EQ(find<QSplitter>("splitterContent").sizes()[0], before + 100);
}

TEST_F(ReviewFrameViewsTest, WithoutAnyStripTheWindowTellsHowToShowThem)
{
    const auto hint = [this] { return find<QLabel>("labelNothingShown").isVisible(); };
    EXPECT_FALSE(hint());
    for (int row = 0; row < list().count(); ++row) {
        EXPECT_FALSE(hint()) << row;
        clickSignal(row);
    }
    ASSERT_EQ(shown(), "000");
    EXPECT_TRUE(hint());
    EXPECT_EQ(label("labelNothingShown"), QStringLiteral("No signal is shown. Choose some in the list."));
    EXPECT_FALSE(strips().isVisible());
    // So it is shown again as it was left, also in the next window.
    closeWindow();
    open();
    EXPECT_EQ(shown(), "000");
    EXPECT_TRUE(hint());
    click("buttonShowAll");
    EXPECT_EQ(shown(), "111");
    EXPECT_EQ(selected(), "111");
    EXPECT_FALSE(hint());
    EXPECT_TRUE(strips().isVisible());
    EXPECT_TRUE(strips().hasFocus());
    clickSignal(1);
    EXPECT_FALSE(hint());
}

/// The keys go to where strips come back from.
TEST_F(ReviewFrameViewsTest, HidingTheLastStripMovesTheFocus)
{
    doubleClickSignal(0);
    ASSERT_EQ(shown(), "100");
    strips().setFocus();
    rightClick(4.0);
    find<QMenu>("menuContext").close();
    actionOf("menuContext", QStringLiteral("Hide this signal")).trigger();
    EXPECT_EQ(shown(), "000");
    EXPECT_TRUE(find<QWidget>("buttonShowAll").hasFocus());
    QTest::keyClick(window().focusWidget(), Qt::Key_Space);
    EXPECT_EQ(shown(), "111");
}

} // namespace
