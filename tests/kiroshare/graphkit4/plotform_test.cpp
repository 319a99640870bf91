// The widgets as a form places them.

#include "ui_plotform.h"

#include "windows/messagerecorder.h"

#include <QMetaProperty>
#include <QWidget>

#include <gtest/gtest.h>

TEST(PlotFormTest, AFormPlacesTheWidgetsAndSetsTheirProperties)
{
    const MessageRecorder messages;
    QWidget window;
    Ui::PlotForm form;
    form.setupUi(&window);
    EXPECT_EQ(MessageRecorder::texts().join(QLatin1Char('\n')).toStdString(), "");
    EXPECT_EQ(form.plot->plotCount, 2);
    EXPECT_EQ(form.plot->precision(), 4);
    EXPECT_EQ(form.plot->horzGrid(), 2.5);
    EXPECT_EQ(form.curves->parentWidget(), &window);
    EXPECT_EQ(form.rangeSelector->selectorRange(), 0.0);
}

TEST(PlotFormTest, PropertiesStandInTheMetaObject)
{
    const QMetaObject& meta = MultiPlot::staticMetaObject;
    for (const char* name : {"m_nPlotCount", "m_nPrecision", "m_fHorzGrid"}) {
        const int index = meta.indexOfProperty(name);
        ASSERT_GE(index, 0) << name;
        EXPECT_TRUE(meta.property(index).isWritable()) << name;
        EXPECT_TRUE(meta.property(index).isDesignable()) << name;
    }
}
