#include "windowgeometry.h"

#include "inistore.h"

#include <QDialog>
#include <QGuiApplication>
#include <QScreen>
#include <QtTest>

#include <gtest/gtest.h>

namespace
{

const QString Section = QStringLiteral("WINDOW");

class WindowGeometryTest : public testing::Test
{
protected:
    WindowGeometryTest()
    {
        m_store.setSection(Section);
        m_window.resize(300, 200);
    }

    void set(const char* key, const char* value)
    {
        m_store.setValue(QString::fromLatin1(key), QString::fromLatin1(value));
    }
    WindowGeometry read() const { return WindowGeometry::read(m_store, Section, m_window); }
    std::string written()
    {
        WindowGeometry::write(m_store, Section, m_window);
        return m_store.toString().toStdString();
    }
    /// Shows the window in this state and waits until it has it.
    void show(Qt::WindowStates state)
    {
        m_window.setWindowState(state);
        m_window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_window) || (state & Qt::WindowMinimized));
    }
    static QRect desktop() { return QGuiApplication::primaryScreen()->availableGeometry(); }
    static QPoint centred(const QSize& size)
    {
        return {desktop().x() + (desktop().width() - size.width()) / 2,
                desktop().y() + (desktop().height() - size.height()) / 2};
    }

    IniStore m_store;
    QWidget m_window;
};

} // namespace

TEST_F(WindowGeometryTest, WithoutSettingsTheWindowKeepsItsSizeInTheMiddle)
{
    EXPECT_FALSE(read().maximized);
    EXPECT_EQ(read().size, QSize(300, 200));
    EXPECT_EQ(read().position, centred({300, 200}));
}

TEST_F(WindowGeometryTest, StoredPlaceAndSizeAreRead)
{
    set("win_max", "1");
    set("win_pos", "30,40");
    set("win_size", "500,400");
    EXPECT_TRUE(read().maximized);
    EXPECT_EQ(read().position, QPoint(30, 40));
    EXPECT_EQ(read().size, QSize(500, 400));
}

TEST_F(WindowGeometryTest, TheStoredSizeIsTheOneThatIsCentred)
{
    set("win_size", "500,400");
    EXPECT_EQ(read().position, centred({500, 400}));
}

TEST_F(WindowGeometryTest, PlaceThatNoScreenShowsIsMadeUp)
{
    for (const char* place : {"-5000,10", "10,5000", "2147483647,0", "-2147483648,-2147483648"}) {
        set("win_pos", place);
        EXPECT_EQ(read().position, centred({300, 200})) << place;
    }
}

TEST_F(WindowGeometryTest, SizeThatCannotBeShownIsTheWindowsOwn)
{
    for (const char* size : {"0,0", "-1,-1", "100,0", "40000,100", "100,2147483647", "x"}) {
        set("win_size", size);
        EXPECT_EQ(read().size, QSize(300, 200)) << size;
    }
}

TEST_F(WindowGeometryTest, ShowMovesAndResizesTheWindow)
{
    WindowGeometry{false, {30, 40}, {500, 400}}.show(m_window);
    EXPECT_TRUE(m_window.isVisible());
    EXPECT_FALSE(m_window.isMaximized());
    EXPECT_EQ(m_window.pos(), QPoint(30, 40));
    EXPECT_EQ(m_window.size(), QSize(500, 400));
}

TEST_F(WindowGeometryTest, ShowMaximizesTheWindow)
{
    WindowGeometry{true, {30, 40}, {500, 400}}.show(m_window);
    EXPECT_TRUE(m_window.isVisible());
    EXPECT_TRUE(m_window.isMaximized());
}

TEST_F(WindowGeometryTest, PlaceDoesNotShowTheWindow)
{
    QDialog dialog;
    WindowGeometry{true, {30, 40}, {500, 400}}.place(dialog);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.pos(), QPoint(30, 40));
    EXPECT_EQ(dialog.size(), QSize(500, 400));
}

TEST_F(WindowGeometryTest, NormalWindowWritesAllThreeKeys)
{
    m_window.move(30, 40);
    show(Qt::WindowNoState);
    EXPECT_EQ(written(), "[WINDOW]\nwin_max=0\nwin_pos=30,40\nwin_size=300,200\n\n");
}

TEST_F(WindowGeometryTest, MaximizedWindowWritesOnlyThat)
{
    show(Qt::WindowMaximized);
    EXPECT_EQ(written(), "[WINDOW]\nwin_max=1\n\n");
}

TEST_F(WindowGeometryTest, MinimizedWindowWritesNothing)
{
    show(Qt::WindowMinimized);
    EXPECT_EQ(written(), "[WINDOW]\n\n");
}

TEST_F(WindowGeometryTest, WhatWasWrittenIsReadAgain)
{
    m_window.move(70, 80);
    show(Qt::WindowNoState);
    WindowGeometry::write(m_store, Section, m_window);
    QWidget other;
    const WindowGeometry geometry = WindowGeometry::read(m_store, Section, other);
    EXPECT_FALSE(geometry.maximized);
    EXPECT_EQ(geometry.position, QPoint(70, 80));
    EXPECT_EQ(geometry.size, QSize(300, 200));
}
