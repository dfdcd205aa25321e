#include "OVP_ProjectTestUtils.h"

#include <vector>

#include <Sci_AbstractColorGridSeriesModel.h>
#include <Sci_AbstractLineSeriesModel.h>

#include <OVP_Mapper.h>

using namespace OVPTest;

namespace {

/*! The charts of an opened session, whose data is extracted when it is first read. */
class MapperLateExtraction : public SampleSessionTest {};

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
	const auto failures = [this]() {
		return m_messages->count(ZEB::MSG_ERROR, "Update from DataIO failed.", "[ExtractorBase::update]");
	};

	ASSERT_TRUE(handler().loadProject(nullptr, session, false));
	EXPECT_TRUE(mapper(0).dataPending() && mapper(1).dataPending() && mapper(2).dataPending());
	// a refresh of charts not read yet follows the files and leaves the extraction for later
	writeTimeSeries(m_dir + "/T.out", { 0, 1, 2, 3, 4, 5 }, { 20, 21, 22, 23, 24, 25 });
	handler().refreshAllMappers();
	EXPECT_TRUE(mapper(0).dataPending());
	EXPECT_EQ(failures(), 0);

	// reading the values extracts them, from the grown file
	const SCI::AbstractLineSeriesModel & line = static_cast<const SCI::AbstractLineSeriesModel &>(*mapper(0).chartModel());
	EXPECT_EQ(std::vector<double>(line.yValues(0), line.yValues(0) + line.size(0)),
			  std::vector<double>({ 20, 21, 22, 23, 24, 25 }));
	EXPECT_FALSE(mapper(0).dataPending());
	// so does making the plot, before the plot reads them: the newest time point of the 3 x 2 wall field
	ASSERT_NE(mapper(1).chart(), nullptr);
	EXPECT_FALSE(mapper(1).dataPending());
	const SCI::AbstractColorGridSeriesModel & grid = static_cast<const SCI::AbstractColorGridSeriesModel &>(*mapper(1).chartModel());
	ASSERT_EQ(grid.xValueSize(0)*grid.yValueSize(0), 6u);
	EXPECT_EQ(std::vector<double>(grid.values(0), grid.values(0) + 6), std::vector<double>({ 7, 8, 9, 10, 11, 12 }));

	// the failure of a file is reported when its chart is first read, as opening reported it before
	EXPECT_EQ(static_cast<const SCI::AbstractLineSeriesModel &>(*mapper(2).chartModel()).size(0), 0u);
	EXPECT_EQ(failures(), 1);
}
