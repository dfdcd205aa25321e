#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <ZEB_Exception.h>

#include <DATAIO_DataIO.h>
#include <DATAIO_GeoFile.h>

#include "SD_SampleDataSet.h"

namespace {

namespace fs = std::filesystem;

std::string scratchDir(const std::string & name) {
	return std::string(std::getenv("ORVANE_TEST_SCRATCH")) + "/" + name;
}

std::string fileContent(const std::string & path) {
	std::ifstream in(path, std::ios::binary);
	return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

/*! A container with all values loaded. */
std::unique_ptr<DATAIO::DataIO> readAll(const std::string & path) {
	std::unique_ptr<DATAIO::DataIO> dio(new DATAIO::DataIO);
	dio->read(path);
	dio->dataVector();
	return dio;
}

/*! Value i of time point t. */
double value(DATAIO::DataIO & dio, std::size_t t, std::size_t i) {
	return dio.data(static_cast<unsigned int>(t))[i];
}

/*! Reads a CCD file of the outdoor temperature as its layout defines it and compares it with
	column 0 of the climate reference output beside it: the year comment, the quantity line, then
	one line "day hh:mm:ss value" per hour from the end of the first hour on, with the same values.
*/
void checkOutdoorTemperatureCcd(const std::string & path) {
	std::unique_ptr<DATAIO::DataIO> climate = readAll(fs::path(path).replace_filename("climate.s6b").string());
	std::istringstream in(fileContent(path));
	std::string line;
	bool year = false;
	while (std::getline(in, line) && line.rfind('#', 0) == 0)
		year = year || line == "# year: 2023";
	EXPECT_TRUE(year);
	char keyword[16] = "", unit[16] = "";
	EXPECT_EQ(std::sscanf(line.c_str(), "%15s %15s", keyword, unit), 2) << line;
	EXPECT_EQ(std::string(keyword) + " " + unit, "TEMPER C");
	std::size_t t = 0;
	for (; std::getline(in, line); ++t) {
		unsigned int day = 0, hour = 0, minute = 0, second = 0;
		double v = 0;
		ASSERT_EQ(std::sscanf(line.c_str(), "%u %2u:%2u:%2u %lf", &day, &hour, &minute, &second, &v), 5) << line;
		ASSERT_TRUE(hour < 24 && minute == 0 && second == 0 && t < climate->timePoints().size()) << line;
		ASSERT_EQ(day*24.0 + hour, climate->timePoints()[t]) << line;
		ASSERT_EQ(v, value(*climate, t, 0)) << line;
	}
	EXPECT_EQ(t, climate->timePoints().size());
}

/*! One year of the set with a coarse wall grid, written once for all tests of this file. */
class SDSampleDataSetTest : public ::testing::Test {
protected:
	static void SetUpTestSuite() {
		SD::SampleDataSet::Options o;
		o.m_directory = scratchDir("year");
		o.m_seed = 5;
		o.m_hours = 8760;
		o.m_wallElements = 30;
		o.m_detailCells = 40;
		fs::remove_all(o.m_directory);
		m_options = o;
		m_written = SD::SampleDataSet(o).write();
	}

	static void TearDownTestSuite() {
		fs::remove_all(m_options.m_directory);
	}

	std::string path(const std::string & name) const { return m_options.m_directory + "/" + name; }

	static SD::SampleDataSet::Options				m_options;
	static std::vector<SD::SampleDataSet::WrittenFile>	m_written;
};

SD::SampleDataSet::Options SDSampleDataSetTest::m_options;
std::vector<SD::SampleDataSet::WrittenFile> SDSampleDataSetTest::m_written;

} // namespace


// Every file of the set exists, reads back with the container library (the CCD file with a
// reader of its text layout), has the time axis and header it should have, and the variants of
// one output hold identical values.
TEST_F(SDSampleDataSetTest, EveryFileReadsBack) {
	const std::vector<std::string> all = SD::SampleDataSet::allFileNames();
	ASSERT_EQ(m_written.size(), all.size());
	for (std::size_t f = 0; f < all.size(); ++f) {
		const std::string & name = all[f];
		SCOPED_TRACE(name);
		EXPECT_EQ(m_written[f].m_name, name);
		ASSERT_EQ(m_written[f].m_size, fs::file_size(path(name)));
		const std::string ext = name.substr(name.rfind('.'));
		if (ext == ".g6a" || ext == ".g6b") {
			EXPECT_LT(f, 4u);	// geometry files first
			DATAIO::GeoFile geo;
			ASSERT_NO_THROW(geo.read(path(name)));
			EXPECT_FALSE(geo.isEmpty());
			continue;
		}
		if (ext == ".ccd") {
			checkOutdoorTemperatureCcd(path(name));
			continue;
		}
		std::unique_ptr<DATAIO::DataIO> dio;
		try {
			dio = readAll(path(name));
		}
		catch (ZEB::Exception & ex) {
			FAIL() << ex.msgWithOrigin();
		}
		// generation 5 has its times in seconds, generation 6 in hours or seconds; the corner
		// fields are written once a day
		const bool gen5 = ext == ".out";
		const double step = name.rfind("corner_temperature", 0) == 0 || name.rfind("corner_heatflux", 0) == 0 ? 24.0 : 1.0;
		EXPECT_TRUE(dio->timeUnit() == "s" || (!gen5 && dio->timeUnit() == "h")) << dio->timeUnit();
		const double unit = dio->timeUnit() == "s" ? 3600.0 : 1.0;
		EXPECT_EQ(dio->startYear(), 2023);
		ASSERT_EQ(dio->timePoints().size(), static_cast<std::size_t>(8760/step));
		for (std::size_t t = 0; t < dio->timePoints().size(); ++t)
			ASSERT_EQ(dio->timePoints()[t], (t + 1)*step*unit);

		// data format from the geometry file the header names, or the embedded one
		const bool wall = name.rfind("wall", 0) == 0;
		DATAIO::DataIO::DataFormat expected = DATAIO::DataIO::DF_2D;
		if (dio->nValues() > 1 && dio->type() != DATAIO::DataIO::T_REFERENCE)
			expected = wall ? DATAIO::DataIO::DF_3D : DATAIO::DataIO::DF_4D;
		if (!gen5 && !dio->geoFileName().empty()) {
			EXPECT_EQ(dio->geoFileName(), std::string(wall ? "wall" : "corner") + (dio->isBinary() ? ".g6b" : ".g6a"));
			DATAIO::GeoFile geo;
			geo.read(path(dio->geoFileName()));
			EXPECT_EQ(dio->determineDataFormat(&geo), expected);
		}
		else {
			EXPECT_EQ(dio->dataFormat(), expected);
		}

		// all variants equal the generation-6 ASCII file
		std::unique_ptr<DATAIO::DataIO> reference = readAll(path(SD::SampleDataSet::outputName(name) + ".s6o"));
		EXPECT_EQ(dio->geoFileHash() != 0, !gen5 && dio->type() != DATAIO::DataIO::T_REFERENCE);
		if (!gen5) {
			EXPECT_EQ(dio->geoFileHash(), reference->geoFileHash());
		}
		ASSERT_EQ(dio->nValues(), reference->nValues());
		for (unsigned int t = 0; t < dio->timePoints().size(); ++t)
			ASSERT_TRUE(std::equal(dio->data(t), dio->data(t) + dio->nValues(), reference->data(t))) << "time index " << t;
	}
}


// Values are printed with at most 10 significant digits, like a simulation program does, but
// not coarser either.
TEST_F(SDSampleDataSetTest, AsciiNumbersHaveTenDigits) {
	std::istringstream in(fileContent(path("wall_relhum.s6o")));
	std::string line;
	while (std::getline(in, line) && line.rfind("INDICES", 0) != 0) {}
	std::size_t tokens = 0, tenDigits = 0;
	for (int l = 0; l < 200 && std::getline(in, line); ++l) {
		std::istringstream tok(line);
		for (std::string text; tok >> text; ++tokens) {
			std::string digits;
			for (char c : text.substr(0, text.find_first_of("eE")))
				if (c >= '0' && c <= '9')
					digits += c;
			digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
			ASSERT_LE(digits.size(), 10u) << text;
			tenDigits += digits.size() >= 9;
		}
	}
	EXPECT_GT(tokens, 200u*31u - 1);
	EXPECT_GT(tenDigits, tokens/2);
}


// The physics as seen through the files: seasons, damping into the wall, fluxes following the
// temperature field, and the corner surface humid enough in winter for mould growth.
TEST_F(SDSampleDataSetTest, PhysicallyPlausible) {
	std::unique_ptr<DATAIO::DataIO> wall = readAll(path("wall_temperature.s6b"));
	const std::size_t n = wall->nValues();
	ASSERT_EQ(n, 30u);
	// January (hours 0-743) against July (hours 4344-5087): the outside swings more than the
	// inside, and in winter the wall is colder outside than inside
	auto monthMean = [&](std::size_t first, std::size_t element) {
		double sum = 0;
		for (std::size_t t = first; t < first + 744; ++t)
			sum += value(*wall, t, element);
		return sum/744;
	};
	EXPECT_GT(monthMean(4344, 0) - monthMean(0, 0), 12.0);
	EXPECT_LT(monthMean(4344, n - 1) - monthMean(0, n - 1), monthMean(4344, 0) - monthMean(0, 0));
	EXPECT_LT(monthMean(0, 0), monthMean(0, n/2));
	EXPECT_LT(monthMean(0, n/2), monthMean(0, n - 1));

	// fluxes across inner sides run from the warmer to the colder element
	std::unique_ptr<DATAIO::DataIO> temperature = readAll(path("corner_temperature.s6o"));
	std::unique_ptr<DATAIO::DataIO> flux = readAll(path("corner_heatflux.s6b"));
	DATAIO::GeoFile geo;
	geo.read(path("corner.g6b"));
	ASSERT_EQ(flux->nValues(), geo.sides().size());
	ASSERT_EQ(temperature->nValues(), geo.elements().size());
	std::size_t checked = 0;
	for (std::size_t t = 0; t < flux->timePoints().size(); ++t)
		for (std::size_t s = 0; s < geo.sides().size(); ++s) {
			const DATAIO::GeoFile::Side & side = geo.sides()[s];
			if (side.m_elementA < 0 || side.m_elementB < 0)
				continue;
			const double dt = value(*temperature, t, static_cast<std::size_t>(side.m_elementA)) -
					value(*temperature, t, static_cast<std::size_t>(side.m_elementB));
			if (std::fabs(dt) > 1e-6) {
				ASSERT_EQ(value(*flux, t, s) > 0, dt > 0) << "time index " << t << ", side " << s;
				++checked;
			}
		}
	EXPECT_GT(checked, flux->timePoints().size()*geo.sides().size()/2);

	// the cold inner corner: humid in winter, dry in summer
	std::unique_ptr<DATAIO::DataIO> surfaceRH = readAll(path("corner_surface_relhum.s6o"));
	std::size_t humidWinterHours = 0, humidSummerHours = 0;
	for (std::size_t t = 0; t < surfaceRH->timePoints().size(); ++t) {
		const double rh = value(*surfaceRH, t, 0);
		ASSERT_TRUE(rh > 0.0 && rh < 100.0) << rh;
		humidWinterHours += (t < 59*24 || t >= 334*24) && rh > 80;
		humidSummerHours += (t >= 151*24 && t < 243*24) && rh > 80;
	}
	EXPECT_GT(humidWinterHours, 1000u);
	EXPECT_EQ(humidSummerHours, 0u);

	std::unique_ptr<DATAIO::DataIO> moisture = readAll(path("wall_moisture_brick.s6o"));
	EXPECT_EQ(moisture->spaceType(), DATAIO::DataIO::ST_MEAN);
	EXPECT_GT(moisture->nums().size(), 1u);
	for (std::size_t t = 0; t < moisture->timePoints().size(); ++t)
		ASSERT_TRUE(value(*moisture, t, 0) > 0.0 && value(*moisture, t, 0) < 190.0);	// free water saturation of brick
}


// Same options, same bytes; another seed, other weather; --only writes only what it names;
// invalid options are refused before anything is written.
TEST(SDSampleDataSet, DeterministicSelectiveAndChecked) {
	SD::SampleDataSet::Options o;
	o.m_hours = 72;
	o.m_wallElements = 9;		// the smallest valid sizes
	o.m_detailCells = 6;
	o.m_seed = 3;
	auto writeInto = [&](const std::string & name) {
		o.m_directory = scratchDir(name);
		fs::remove_all(o.m_directory);
		return SD::SampleDataSet(o).write();
	};
	writeInto("seed3a");
	writeInto("seed3b");
	o.m_seed = 4;
	writeInto("seed4");
	for (const std::string & name : SD::SampleDataSet::allFileNames()) {
		SCOPED_TRACE(name);
		const std::string a = fileContent(scratchDir("seed3a/" + name));
		EXPECT_FALSE(a.empty());
		EXPECT_EQ(a, fileContent(scratchDir("seed3b/" + name)));
		if (name.rfind("climate", 0) == 0 || name.rfind("wall_temperature", 0) == 0) {
			EXPECT_NE(a, fileContent(scratchDir("seed4/" + name)));
		}
	}

	o.m_only = { "wall_temperature.s6b", "climate", "corner_surface_relhum", "corner.g6a" };
	EXPECT_EQ(writeInto("only").size(), 9u);
	std::set<std::string> names;
	for (const fs::directory_entry & e : fs::directory_iterator(o.m_directory))
		names.insert(e.path().filename().string());
	EXPECT_EQ(names, (std::set<std::string>{ "corner.g6a", "wall_temperature.s6b", "climate.s6o", "climate.s6b",
		"climate_outdoor_temperature.ccd", "corner_surface_relhum.s6o", "corner_surface_relhum.s6b",
		"corner_surface_relhum_gen5_ascii.out", "corner_surface_relhum_gen5_binary.out" }));
	EXPECT_EQ(fileContent(o.m_directory + "/wall_temperature.s6b"), fileContent(scratchDir("seed4/wall_temperature.s6b")));

	// each invalid option alone is refused, also a name the set no longer uses
	o.m_only = { "wall_temperature.d6o" };
	EXPECT_THROW(SD::SampleDataSet{ o }, ZEB::Exception);
	o.m_only.clear();
	o.m_hours = 0;
	EXPECT_THROW(SD::SampleDataSet{ o }, ZEB::Exception);
	o.m_hours = 10;
	o.m_wallElements = 8;
	EXPECT_THROW(SD::SampleDataSet{ o }, ZEB::Exception);
	o.m_wallElements = 9;
	o.m_detailCells = 5;
	EXPECT_THROW(SD::SampleDataSet{ o }, ZEB::Exception);
	o.m_detailCells = 6;
	o.m_detailStep = 0;
	EXPECT_THROW(SD::SampleDataSet{ o }, ZEB::Exception);
	// a directory that cannot be created
	o.m_detailStep = 1;
	o.m_directory = scratchDir("seed3a/wall.g6a/sub");
	EXPECT_THROW(SD::SampleDataSet(o).write(), ZEB::Exception);
}
