#include "OVP_ProjectTestUtils.h"

#include <vector>

#include <QPointF>
#include <QStringList>

#include <Sci_AbstractColorGridSeriesModel.h>
#include <Sci_AbstractLineSeriesModel.h>

#include <OVP_Mapper.h>

using namespace OVPTest;

namespace {

typedef SCI::AbstractLineSeriesModel LM;
typedef SCI::AbstractColorGridSeriesModel GM;

/*! The charts of an opened session, whose data is extracted when it is first read. */
class MapperLateExtraction : public SampleSessionTest {};

/*! The values of line series 0 of a chart. */
std::vector<double> lineValues(const OVP::Mapper & m) {
	const LM & model = static_cast<const LM &>(*m.chartModel());
	return std::vector<double>(model.yValues(0), model.yValues(0) + model.size(0));
}

} // namespace


TEST_F(MapperLateExtraction, ChartsExtractWhenFirstReadFromTheFilesAsTheyAreThen) {
	addChart("T.out");
	addChart("plane.out", EM::CT_TimeCut);
	addChart("RH.out");
	const QString session = m_dir + "/late.o2";
	ASSERT_EQ(handler().saveProject(nullptr, session), OVP::ProjectHandler::SaveOK);
	// the last value of RH.out no longer parses; opening the file reads only its time points
	QStringList lines = readText(m_dir + "/RH.out").trimmed().split('\n');
	lines.last() = lines.last().split('\t').front() + "\toops";
	writeText(m_dir + "/RH.out", lines.join('\n') + '\n');

	ASSERT_TRUE(handler().loadProject(nullptr, session, false));
	for (int i = 0; i < 3; ++i)
		EXPECT_TRUE(mapper(i).dataPending()) << i;
	// a refresh while nothing is shown follows the files and leaves the extraction for later
	writeTimeSeries(m_dir + "/T.out", { 0, 1, 2, 3, 4, 5 }, { 20, 21, 22, 23, 24, 25 });
	handler().refreshAllMappers();
	EXPECT_TRUE(mapper(0).dataPending());
	EXPECT_EQ(m_messages->count(ZEB::MSG_ERROR, "Update from DataIO failed.", "[ExtractorBase::update]"), 0);

	// reading the data extracts it, from the grown file
	EXPECT_EQ(lineValues(mapper(0)), std::vector<double>({ 20, 21, 22, 23, 24, 25 }));
	EXPECT_FALSE(mapper(0).dataPending());
	// so does making the plot, before the plot reads it
	EXPECT_TRUE(mapper(1).dataPending());
	ASSERT_NE(mapper(1).chart(), nullptr);
	EXPECT_FALSE(mapper(1).dataPending());
	// the newest time point of the 3 x 2 wall field, x index fastest
	const GM & grid = static_cast<const GM &>(*mapper(1).chartModel());
	ASSERT_EQ(grid.xValueSize(0)*grid.yValueSize(0), 6u);
	EXPECT_EQ(std::vector<double>(grid.values(0), grid.values(0) + 6), std::vector<double>({ 7, 8, 9, 10, 11, 12 }));
	EXPECT_EQ(QPointF(7, 12), grid.seriesData(0, GM::ColorGridValueRange).toPointF());

	// the failure of a file is reported when its chart is first read, as opening reported it before
	EXPECT_TRUE(lineValues(mapper(2)).empty());
	EXPECT_EQ(m_messages->count(ZEB::MSG_ERROR, "Update from DataIO failed.", "[ExtractorBase::update]"), 1);
}
