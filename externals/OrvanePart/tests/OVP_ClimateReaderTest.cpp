// Tests of the CCD, WAC and statistics readers against the files and expectations that
// tools/ReaderTestFiles/write_climate_files.py writes, and against hostile files.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <ZEB_Exception.h>

#include <DATAIO_DataIO.h>

#include <OVP_FileReaderRegistry.h>
#include <OVP_ReaderLines.h>

#include "OVP_ProjectTestUtils.h"

using namespace std::string_literals;

namespace {

/*! What an expectation file says about its test file. */
struct Expectation {
	std::string							m_reader;
	std::string							m_quantity;
	std::string							m_startYear;
	std::string							m_timeUnit;
	std::vector<std::string>			m_columns;		///< "quantity\tunit"
	std::vector<std::string>			m_warnings;
	std::string							m_error;
	std::vector<std::vector<double> >	m_rows;			///< time, then the values; NaN for a gap
};

Expectation readExpectation(const std::filesystem::path & path) {
	Expectation e;
	std::ifstream in(path);
	std::string line;
	bool data = false;
	while (std::getline(in, line)) {
		if (data) {
			std::vector<double> row;
			std::istringstream cells(line);
			std::string cell;
			while (std::getline(cells, cell, '\t'))
				row.push_back(cell == "gap" ? std::nan("") : std::strtod(cell.c_str(), nullptr));
			e.m_rows.push_back(row);
			continue;
		}
		const std::size_t blank = line.find(' ');
		const std::string key = line.substr(0, blank);
		const std::string value = blank == std::string::npos ? "" : line.substr(blank + 1);
		data = key == "data";
		if (key == "reader")			e.m_reader = value;
		else if (key == "quantity")		e.m_quantity = value;
		else if (key == "start_year")	e.m_startYear = value;
		else if (key == "time_unit")	e.m_timeUnit = value;
		else if (key == "column")		e.m_columns.push_back(value);
		else if (key == "warning")		e.m_warnings.push_back(value);
		else if (key == "error")		e.m_error = value;
	}
	return e;
}

/*! The header of a container as the expectation files write it. */
void expectHeader(const Expectation & e, const DATAIO::DataIO & c) {
	EXPECT_EQ(DATAIO::DataIO::T_REFERENCE, c.type());
	EXPECT_EQ(DATAIO::DataIO::DF_2D, c.dataFormat());
	EXPECT_EQ(e.m_quantity, c.quantity());
	EXPECT_EQ(e.m_startYear, c.startYear() == DATAIO::DataIO::UNSET_START_YEAR ? "unset" : std::to_string(c.startYear()));
	EXPECT_EQ(e.m_timeUnit, c.timeUnit());
	ASSERT_EQ(e.m_columns.size(), c.nums().size());
	for (std::size_t i = 0; i < e.m_columns.size(); ++i)
		EXPECT_EQ(e.m_columns[i], c.columnQuantity(i) + "\t" + c.columnUnit(i));
	EXPECT_EQ(c.columnUnit(0), c.valueUnit());
}

std::filesystem::path scratchFile(const std::string & name) {
	return std::filesystem::path(std::getenv("ORVANE_TEST_SCRATCH")) / name;
}

} // namespace


TEST(OVPClimateReader, FilesReadBackAsTheirIndependentWriterExpects) {
	const std::filesystem::path dir = std::filesystem::path(std::getenv("ORVANE_SOURCE_DIR")) /
									  "externals/OrvanePart/tests/data/readers";
	int files = 0;
	for (const auto & entry : std::filesystem::directory_iterator(dir)) {
		const std::filesystem::path expectationFile = entry.path();
		if (expectationFile.extension() != ".expected")
			continue;
		const std::string file = (dir / expectationFile.stem()).string();
		const Expectation e = readExpectation(expectationFile);
		if (e.m_reader != "CCD climate data" && e.m_reader != "WAC climate data" && e.m_reader != "Solver statistics")
			continue;	// the file of another reader
		SCOPED_TRACE(file);
		++files;
		const OVP::FileReader * reader = OVP::FileReaderRegistry::instance().readerFor(file);
		ASSERT_NE(nullptr, reader);
		EXPECT_EQ(e.m_reader, reader->name());
		OVPTest::MessageRecorder recorder;
		DATAIO::DataIO header;
		DATAIO::DataIO c;
		try {
			reader->readHeader(file, header);
			reader->read(file, c);
			EXPECT_EQ("", e.m_error);
		}
		catch (ZEB::Exception & ex) {
			EXPECT_NE("", e.m_error) << ex.what();
			EXPECT_NE(std::string::npos, std::string(ex.what()).find(e.m_error)) << ex.what();
			continue;
		}
		for (const std::string & warning : e.m_warnings)
			EXPECT_NE(std::string::npos, recorder.text().find(warning)) << warning;
		expectHeader(e, header);
		EXPECT_TRUE(header.timePoints().empty());
		expectHeader(e, c);
		ASSERT_EQ(e.m_rows.size(), c.timePoints().size());
		for (unsigned int t = 0; t < e.m_rows.size(); ++t) {
			ASSERT_EQ(e.m_rows[t].size(), c.nValues() + 1);
			EXPECT_EQ(e.m_rows[t][0], c.timePoints()[t]) << "time point " << t;
			const double * values = c.data(t);
			for (std::size_t i = 0; i < c.nValues(); ++i) {
				// bit for bit, a gap is NaN
				const double expected = e.m_rows[t][i + 1];
				EXPECT_TRUE(std::isnan(expected) ? std::isnan(values[i]) : std::memcmp(&expected, values + i, sizeof(double)) == 0)
					<< "time point " << t << " column " << i + 1 << ": " << values[i] << " instead of " << expected;
			}
		}
	}
	EXPECT_EQ(9, files);
}


TEST(OVPClimateReader, HostileFilesGiveAClearMessage) {
	const std::string overlong(OVP::ReaderLines::MAX_LINE_LENGTH + 1, 'x');
	const struct {
		const char *	m_name;
		std::string		m_content;
		const char *	m_message;		///< part of the error or of a warning
	} cases[] = {
		{ "garbage.ccd", "TEMPER C\n\x7f" "ELF\x02\x01\x01\0\0\0\x03\0>\0"s, "line 2 contains NUL bytes" },
		{ "garbage.wac", "\x89PNG\r\n\x1a\n\0\0\0\rIHDR"s, "names no WAC layout of version 2" },
		{ "header_only.ccd", "# year: 2020\nTEMPER C\n", "holds no data lines" },
		{ "text.ccd", "TEMPER C\n0 01:00 21.5\n0 02:00 warm\n", "line 3, column 3: 'warm' is not a number" },
		{ "backwards_stats.tsv", "Time [h]\tSteps [-]\n1\t2\n3\t4\n2\t5\n", "line 4: the time 2 does not follow the time 3 of line 3" },
		{ "clock.ccd", "TEMPER C\n0 24:30 1\n", "line 2, column 2: '24:30' is no time of day" },
		{ "time_unit_stats.tsv", "Time [m]\tSteps [-]\n1\t2\n", "the time column's unit 'm' is no time unit" },
		{ "cut.wac", "X_WAC_02\n10\tLine Offset\nTitle\n", "ends in its header, before line 4" },
		{ "columns.wac", "X_WAC_02\n9\tOffset\nT\n1\tLon\n2\tLat\n3\tH\n4\tTZ\n1\tTime Step\n1\tNumber of DataLines\n"
						 "3\tNumber of DataColumns\nTA\tHREL\n", "2 column keywords, but the header names 3 data columns" },
		{ "long.ccd", "TEMPER C\n" + overlong, "is longer than 16777216 bytes" },
	};
	for (const auto & c : cases) {
		SCOPED_TRACE(c.m_name);
		const std::string file = scratchFile(c.m_name).string();
		std::ofstream(file, std::ios::binary) << c.m_content;
		const OVP::FileReader * reader = nullptr;
		for (const auto & r : OVP::FileReaderRegistry::instance().readers())
			if (OVP::FileReaderRegistry::matches(file, r->patterns()) && reader == nullptr)
				reader = r.get();
		ASSERT_NE(nullptr, reader);
		OVPTest::MessageRecorder recorder;
		DATAIO::DataIO container;
		std::string text;
		try {
			reader->read(file, container);
		}
		catch (ZEB::Exception & ex) {
			text = ex.what();
		}
		text += "\n" + recorder.text();
		EXPECT_NE(std::string::npos, text.find(c.m_message)) << text;
	}
}


TEST(OVPClimateReader, StatisticsFilesAreToldFromTables) {
	const OVP::FileReaderRegistry & registry = OVP::FileReaderRegistry::instance();
	const std::string gen6 = "Time [s]\tTime step [s]\n1\t0.5\n";
	const OVP::FileReader * stats = registry.readerFor("run_stats.tsv", gen6);
	ASSERT_NE(nullptr, stats);
	EXPECT_EQ("Solver statistics", stats->name());
	EXPECT_EQ(stats, registry.readerFor("run_STATS.txt", "# solver\n# Time [h] Steps [-]\n1 2\n"));
	// the same header in a table's name, and a table without units under a statistics name
	EXPECT_NE(stats, registry.readerFor("run.tsv", gen6));
	EXPECT_NE(stats, registry.readerFor("run_stats.tsv", "Time\tTemperature\n1\t20\n"));
}
