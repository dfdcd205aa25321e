// The CSV/TSV table and logger export readers against the files and expectations written by
// tools/ReaderTestFiles/write_table_files.py, and against hostile inputs.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <ZEB_Exception.h>

#include <DATAIO_DataIO.h>

#include <OVP_FileReaderRegistry.h>
#include <OVP_TableReader.h>

#include "OVP_ProjectTestUtils.h"

namespace {

namespace fs = std::filesystem;

std::vector<std::string> tabFields(const std::string & line) {
	std::vector<std::string> fields;
	std::stringstream in(line);
	std::string f;
	while (std::getline(in, f, '\t'))
		fields.push_back(f);
	return fields;
}

double expectedNumber(const std::string & text) {
	return text == "gap" ? std::numeric_limits<double>::quiet_NaN() : std::strtod(text.c_str(), nullptr);
}

/*! Bit-exact equality, NaN equal to NaN. */
bool same(double a, double b) {
	return std::memcmp(&a, &b, sizeof(double)) == 0 || (a != a && b != b);
}

/*! Compares the container with one expectation file; readHeader must give the same header. */
void checkAgainstExpectation(const fs::path & expectation) {
	const std::string dataFile = expectation.parent_path() / expectation.stem();
	SCOPED_TRACE(dataFile);
	std::ifstream in(expectation);
	std::string line, errors;
	std::vector<std::vector<std::string> > items;
	while (std::getline(in, line))
		if (!line.empty() && line[0] != '#')
			items.push_back(tabFields(line));

	const OVP::FileReader * reader = OVP::FileReaderRegistry::instance().readerFor(dataFile);
	ASSERT_NE(reader, nullptr);
	OVPTest::MessageRecorder warnings;
	DATAIO::DataIO header, dio;
	try {
		reader->readHeader(dataFile, header);
		reader->read(dataFile, dio);
	}
	catch (ZEB::Exception & ex) {
		errors = ex.msgWithOrigin();
	}
	std::size_t column = 0, row = 0;
	for (const std::vector<std::string> & item : items) {
		const std::string & key = item[0];
		if (key == "reader")
			EXPECT_EQ(reader->name(), item[1]);
		else if (key == "error")
			EXPECT_NE(errors.find(item[1]), std::string::npos) << errors;
		else if (!errors.empty())
			FAIL() << errors;
		else if (key == "collection")
			EXPECT_EQ(dio.quantity(), item[1]);
		else if (key == "description")
			EXPECT_NE(dio.description().find(item[1]), std::string::npos) << dio.description();
		else if (key == "start_year")
			EXPECT_EQ(dio.startYear(), item[1] == "none" ? DATAIO::DataIO::UNSET_START_YEAR : std::atoi(item[1].c_str()));
		else if (key == "time_unit")
			EXPECT_EQ(dio.timeUnit(), item[1]);
		else if (key == "warning")
			EXPECT_NE(warnings.text(ZEB::MSG_WARNING).find(item[1]), std::string::npos) << warnings.text();
		else if (key == "column") {
			EXPECT_EQ(dio.columnQuantity(column), item[1]);
			EXPECT_EQ(dio.columnUnit(column), item[2]);
			EXPECT_EQ(header.columnQuantity(column), item[1]);
			EXPECT_EQ(header.columnUnit(column), item[2]);
			++column;
		}
		else if (key == "row") {
			ASSERT_LT(row, dio.timePoints().size());
			ASSERT_EQ(item.size(), dio.nValues() + 2);
			EXPECT_TRUE(same(dio.timePoints()[row], expectedNumber(item[1]))) << "time point " << row;
			const double * values = dio.data(static_cast<unsigned int>(row));
			for (std::size_t i = 0; i < dio.nValues(); ++i)
				EXPECT_TRUE(same(values[i], expectedNumber(item[i + 2]))) << "row " << row << ", value " << i << ": "
					<< values[i] << " instead of " << item[i + 2];
			++row;
		}
	}
	if (errors.empty()) {
		EXPECT_EQ(dio.nums().size(), column);
		EXPECT_EQ(dio.timePoints().size(), row);
		EXPECT_TRUE(header.timePoints().empty());
		EXPECT_EQ(header.startYear(), dio.startYear());
		EXPECT_EQ(header.timeUnit(), dio.timeUnit());
		EXPECT_EQ(dio.type(), DATAIO::DataIO::T_REFERENCE);
		EXPECT_EQ(dio.dataFormat(), DATAIO::DataIO::DF_2D);
	}
}

} // namespace


TEST(TableReader, FilesReadAsTheirIndependentWriterExpects) {
	const fs::path dir = fs::path(std::getenv("ORVANE_SOURCE_DIR")) / "externals/OrvanePart/tests/data/readers";
	std::size_t files = 0;
	for (const fs::directory_entry & e : fs::directory_iterator(dir))
		if (e.path().extension() == ".expected" && (e.path().stem().string().compare(0, 6, "table_") == 0 ||
													e.path().stem().string().compare(0, 7, "logger_") == 0)) {
			checkAgainstExpectation(e.path());
			++files;
		}
	EXPECT_GE(files, 10u);
}


TEST(TableReader, HostileInputsGiveClearMessages) {
	const std::string tooLong(std::size_t(17) << 20, '7');
	// a number in an event column after the lines that showed it as one
	std::string eventNumber = "\"#\",\"Date Time, GMT+01:00\",\"Temp, C\",\"Stopped\"\n";
	for (int i = 0; i < 12; ++i)
		eventNumber += std::to_string(i + 1) + ",01/15/23 01:" + std::to_string(10 + i*4) + ":00 AM,21.5," +
			(i == 11 ? "7" : "Logged") + "\n";
	const struct {
		const char *	m_name;
		std::string		m_content;
		const char *	m_message;
	} cases[] = {
		{ "empty.csv", "", "is empty" },
		{ "binary.csv", std::string("\x7f" "ELF\x02\x01\x01\0\0\0\n\x89\xff\x00\x13;,\t\n", 20), "NUL bytes" },
		{ "oneline.csv", "Time;T [C]\n0;" + tooLong, "Line 2 of file" },
		{ "header_only.csv", "# comment\nTime [h];T [C]\n\n", "has a header but no data lines" },
		{ "comments_only.csv", "# a\n# b\n", "no header line" },
		{ "no_header.csv", "0;1.5\n1;2.5\n", "but begins with the time '0'" },
		{ "one_column.csv", "Time\n0\n1\n", "does not split into columns" },
		{ "text_column.csv", "Time [h];T [C];Site\n0;1.5;3\n1;2.5;north\n", "Line 3, column 3 ('Site')" },
		{ "backwards.csv", "Time [h],T [C]\n0,1\n2,1\n1.5,1\n", "Line 4 of file" },
		{ "backwards_dates.csv", "Time,T [C]\n2023-05-01 10:00,1\n2023-04-30 10:00,1\n",
		  "2023-04-30 10:00:00 is not later than 2023-05-01 10:00:00 in line 2" },
		{ "no_time_unit.csv", "Time [m];T [C]\n0;1\n", "is no unit of time" },
		{ "field_count.csv", "Time [h];T [C];RH [%]\n0;1;2\n1;2\n", "Line 3 of file" },
		{ "open_quote.csv", "Time [h],T [C]\n0,\"1\n", "a double quote is not closed" },
		{ "no_such_day.csv", "Zeit;T [C]\n31.01.2023 10:00;1\n31.02.2023 10:00;2\n", "there is no day 31 in month 2 of 2023" },
		{ "mixed_orders.csv", "Date;T [C]\n13/01/2023 10:00;1\n01/14/2023 10:00;2\n", "line 2 has a day above 12 in front, line 3" },
		{ "logger_event_number.csv", eventNumber, "Line 13, column 4 of file" },
		{ "logger_no_values.csv", "\"#\",\"Date Time, GMT+01:00\",\"Stopped\"\n1,01/15/23 02:30:00 PM,\n",
		  "has no column of measured values" },
	};
	const std::string scratch = std::getenv("ORVANE_TEST_SCRATCH");
	const OVP::TableReader tableReader;
	OVPTest::MessageRecorder quiet;
	for (const auto & c : cases) {
		const std::string path = scratch + "/" + c.m_name;
		std::ofstream(path, std::ios::binary) << c.m_content;
		const OVP::FileReader * reader = OVP::FileReaderRegistry::instance().readerFor(path);
		if (reader == nullptr)
			reader = &tableReader;
		DATAIO::DataIO dio;
		try {
			reader->read(path, dio);
			ADD_FAILURE() << c.m_name << " was read";
		}
		catch (ZEB::Exception & ex) {
			EXPECT_NE(ex.msgWithOrigin().find(c.m_message), std::string::npos) << c.m_name << ": " << ex.msgWithOrigin();
			EXPECT_NE(ex.msgWithOrigin().find(path), std::string::npos) << c.m_name << ": " << ex.msgWithOrigin();
		}
		fs::remove(path);
	}
}
