// The colour map editor: preview colours, stop editing, type switch and colour-map files.
#include <gtest/gtest.h>

#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QToolButton>

#include <Sci_ColorMapEditWidget.h>

#include "Sci_ExportTestSupport.h"
#include "Sci_TestSupport.h"

using namespace SciTest;
using SCI::ColorMap;

namespace {

/*! An editor whose colour dialog answers with a fixed colour. */
class TestColorMapEditWidget : public SCI::ColorMapEditWidget {
public:
	QColor m_answer = QColor(10, 200, 30);
protected:
	QColor chooseColor(const QColor &) override { return m_answer; }
};

/*! A map blue (0) - green (0.25) - red (1). */
ColorMap threeStopMap() {
	ColorMap map;
	map.m_linearColorStops = { ColorMap::ColorStop(0, QColor(0, 0, 255)), ColorMap::ColorStop(0.25, QColor(0, 255, 0)),
							   ColorMap::ColorStop(1, QColor(255, 0, 0)) };
	return map;
}

class SciColorMapEditWidget : public ::testing::Test {
protected:
	void SetUp() override {
		m_widget.reset(new TestColorMapEditWidget);
		m_widget->setMessageReporter(&m_reporter);
		m_widget->setColorMap(threeStopMap());
	}
	QTableWidget * table() const { return m_widget->findChild<QTableWidget *>("tableWidgetColorStops"); }

	std::unique_ptr<TestColorMapEditWidget>	m_widget;
	RecordingReporter						m_reporter;
};

} // namespace


TEST(SciColorMapPreview, LinearAndAlphaMapColours) {
	// 101 pixels: pixel x shows the map at x/100
	const QImage linear = SCI::ColorMapEditWidget::previewImage(threeStopMap(), QSize(101, 4));
	EXPECT_EQ(linear.pixelColor(25, 0), QColor(0, 255, 0));
	EXPECT_EQ(linear.pixelColor(100, 3), QColor(255, 0, 0));
	// halfway between blue and green (t = 0.125) and a third of the way from green to red (t = 0.5)
	EXPECT_TRUE(isNear(linear.pixelColor(12, 1), QColor(0, 122, 133), 2)) << linear.pixelColor(12, 1).name().toStdString();
	EXPECT_TRUE(isNear(linear.pixelColor(50, 1), QColor(85, 170, 0), 2)) << linear.pixelColor(50, 1).name().toStdString();

	ColorMap alpha;
	alpha.m_type = ColorMap::AlphaMap;
	alpha.m_alphaColor = QColor(0, 0, 0);
	const QImage faded = SCI::ColorMapEditWidget::previewImage(alpha, QSize(101, 10));
	// transparent at the minimum (checkerboard shows), opaque at the maximum, half in between
	EXPECT_GT(qGray(faded.pixel(0, 0)), 180);
	EXPECT_EQ(faded.pixelColor(100, 5), QColor(0, 0, 0));
}


TEST_F(SciColorMapEditWidget, StopsAreEditedWithinTheirNeighbours) {
	QSignalSpy changed(m_widget.get(), &SCI::ColorMapEditWidget::colorMapChanged);
	QTableWidget * t = table();
	ASSERT_EQ(t->rowCount(), 3);

	// a position outside its neighbours is refused and shown again as before
	t->item(1, 0)->setText("1.5");
	ASSERT_EQ(m_reporter.m_messages.size(), 1);
	EXPECT_EQ(m_reporter.m_messages[0].m_text, "The position must be a number between 0 and 1.");
	EXPECT_EQ(t->item(1, 0)->text(), "0.25");
	EXPECT_EQ(changed.count(), 0);

	t->item(1, 0)->setText("0.75");
	EXPECT_EQ(m_widget->colorMap().m_linearColorStops[1].m_pos, 0.75);
	EXPECT_EQ(changed.count(), 1);

	// a new stop goes halfway to the next stop, with the colour the map has there
	t->setCurrentCell(1, 0);
	m_widget->findChild<QPushButton *>("pushButtonAddStop")->click();
	ASSERT_EQ(m_widget->colorMap().m_linearColorStops.size(), 4);
	const ColorMap::ColorStop added = m_widget->colorMap().m_linearColorStops[2];
	EXPECT_DOUBLE_EQ(added.m_pos, 0.875);
	EXPECT_TRUE(isNear(added.m_color, QColor(128, 128, 0), 1)) << added.m_color.name().toStdString();

	// the ends cannot be removed, inner stops can
	QPushButton * remove = m_widget->findChild<QPushButton *>("pushButtonRemoveStop");
	t->setCurrentCell(3, 0);
	EXPECT_FALSE(remove->isEnabled());
	t->setCurrentCell(1, 0);
	ASSERT_TRUE(remove->isEnabled());
	remove->click();
	ASSERT_EQ(m_widget->colorMap().m_linearColorStops.size(), 3);
	EXPECT_DOUBLE_EQ(m_widget->colorMap().m_linearColorStops[1].m_pos, 0.875);

}


TEST_F(SciColorMapEditWidget, SaveAndLoadColorMapFiles) {
	ColorMap map = threeStopMap();
	map.m_type = ColorMap::AlphaMap;
	map.m_alphaColor = QColor(20, 40, 60);
	m_widget->setColorMap(map);
	const QString path = scratchPath("editor.o2colormap");
	ASSERT_TRUE(m_widget->saveColorMap(path));
	TestColorMapEditWidget other;
	other.setMessageReporter(&m_reporter);
	QSignalSpy changed(&other, &SCI::ColorMapEditWidget::colorMapChanged);
	ASSERT_TRUE(other.loadColorMap(path));
	EXPECT_EQ(other.colorMap(), map);
	EXPECT_TRUE(other.findChild<QRadioButton *>("radioButtonAlphaMap")->isChecked());

	// a foreign file leaves the map as it is and names the log file
	const QString foreign = scratchPath("foreign.o2colormap");
	writeTextFile(foreign, "<?xml version=\"1.0\"?>\n<OrvaneStyle/>\n");
	other.setLogFilePath("/home/user/OrvaneApp.log");
	MessageCapture capture;
	EXPECT_FALSE(other.loadColorMap(foreign));
	EXPECT_EQ(other.colorMap(), map);
	ASSERT_EQ(m_reporter.m_messages.size(), 1);
	EXPECT_EQ(m_reporter.m_messages[0].m_text,
			  "Error reading color map from file. See logfile '/home/user/OrvaneApp.log' for details.");

}
