#include "DATAIO_TestUtils.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <limits>
#include <memory>
#include <random>
#include <sstream>

namespace DATAIO_Test {

std::string scratchFile(const std::string & name) {
	return std::string(std::getenv("ORVANE_TEST_SCRATCH")) + "/" + name;
}


void writeBytes(const std::string & path, const std::string & bytes) {
	std::ofstream out(path, std::ios::binary | std::ios::trunc);
	out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}


void appendBytes(const std::string & path, const std::string & bytes) {
	std::ofstream out(path, std::ios::binary | std::ios::app);
	out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}


std::string readBytes(const std::string & path) {
	std::ifstream in(path, std::ios::binary);
	std::ostringstream s;
	s << in.rdbuf();
	return s.str();
}


bool hasMessage(const ZEB::Exception & ex, const std::string & msg) {
	for (const ZEB::Exception::MsgInfo & m : ex.messages())
		if (m.m_what == msg)
			return true;
	return false;
}


bool hasRecord(const ZEB::Exception & ex, const std::string & msg, const std::string & where) {
	for (const ZEB::Exception::MsgInfo & m : ex.messages())
		if (m.m_what == msg && m.m_where == where)
			return true;
	return false;
}


DATAIO::GeoFile sampleGeometry(unsigned int nx, unsigned int ny, unsigned int nz) {
	DATAIO::GeoFile geo;
	geo.setMaterials({ { 1001, "Brick" }, { 2002, "Mineral wool, 035" } });
	std::vector<double> wx, wy, wz;
	for (unsigned int i = 0; i < nx; ++i)
		wx.push_back(0.01*(i + 1));
	for (unsigned int j = 0; j < ny; ++j)
		wy.push_back(0.25);
	for (unsigned int k = 0; k < nz; ++k)
		wz.push_back(1.0/3);
	geo.setGrid(wx, wy, wz);
	std::vector<DATAIO::GeoFile::Element> elements;
	double z = 0;
	for (unsigned int k = 0; k < nz; ++k) {
		double y = 0;
		for (unsigned int j = 0; j < ny; ++j) {
			double x = 0;
			for (unsigned int i = 0; i < nx; ++i) {
				DATAIO::GeoFile::Element e;
				e.m_n = static_cast<std::uint32_t>(elements.size());
				e.m_x = x + wx[i]/2;
				e.m_y = y + wy[j]/2;
				e.m_z = z + wz[k]/2;
				e.m_matId = i % 2 == 0 ? 1001 : 2002;
				e.m_i = i;
				e.m_j = j;
				e.m_k = k;
				elements.push_back(e);
				x += wx[i];
			}
			y += wy[j];
		}
		z += wz[k];
	}
	geo.setElements(elements);
	// sides in x direction: left boundary, between neighbours, right boundary
	std::vector<DATAIO::GeoFile::Side> sides;
	for (const DATAIO::GeoFile::Element & e : elements) {
		DATAIO::GeoFile::Side s;
		s.m_n = static_cast<std::uint32_t>(sides.size());
		s.m_x = e.m_x - wx[e.m_i]/2;
		s.m_y = e.m_y;
		s.m_z = e.m_z;
		s.m_orientation = 0;
		s.m_elementA = e.m_i == 0 ? DATAIO::GeoFile::NO_ELEMENT : static_cast<std::int32_t>(e.m_n) - 1;
		s.m_elementB = static_cast<std::int32_t>(e.m_n);
		sides.push_back(s);
		if (e.m_i + 1 == nx) {
			s.m_n = static_cast<std::uint32_t>(sides.size());
			s.m_x = e.m_x + wx[e.m_i]/2;
			s.m_elementA = static_cast<std::int32_t>(e.m_n);
			s.m_elementB = DATAIO::GeoFile::NO_ELEMENT;
			sides.push_back(s);
		}
	}
	geo.setSides(sides);
	return geo;
}


std::vector<double> awkwardDoubles(std::size_t count, std::uint64_t seed) {
	const double fixed[] = { 0.0, -0.0, 0.1, 1.0/3, -2.0/3, 1e-320, -4.9406564584124654e-324,
							 std::numeric_limits<double>::max(), std::numeric_limits<double>::min(),
							 -std::numeric_limits<double>::max(), 123456789012345678.0, 20.5 };
	std::vector<double> v;
	std::mt19937_64 gen(seed);
	for (std::size_t i = 0; i < count; ++i) {
		if (i < sizeof(fixed)/sizeof(double)) {
			v.push_back(fixed[(i + seed) % (sizeof(fixed)/sizeof(double))]);
			continue;
		}
		double d;
		do {
			const std::uint64_t bits = gen();
			std::memcpy(&d, &bits, sizeof(d));
		} while (!std::isfinite(d));
		v.push_back(d);
	}
	return v;
}


DATAIO::DataIO sampleContainer(bool binary, bool preV6, DATAIO::DataIO::OutputType type,
							   DATAIO::DataIO::SpaceType spaceType, unsigned int elementCount,
							   std::size_t timePointCount)
{
	DATAIO::DataIO dio;
	dio.setBinary(binary);
	if (preV6) {
		dio.setFileVersion(5, 0);
		dio.setGeometry(std::unique_ptr<DATAIO::GeoFile>(new DATAIO::GeoFile(sampleGeometry(elementCount, 2, 1))));
	}
	else {
		dio.setGeoFileName("../geometry/wall with spaces.g6b");
		dio.setGeoFileHash(3735928559u);
	}
	dio.setType(type);
	dio.setSpaceType(spaceType);
	dio.setTimeType(DATAIO::DataIO::TT_MEAN);
	dio.setProjectFileName("C:/projects/Wall = test.d6p");
	dio.setQuantity("Relative humidity, averaged");
	dio.setQuantityKeyword("RelativeHumidity");
	dio.setValueUnit("%");
	dio.setTimeUnit("h");
	dio.setStartYear(-12);
	dio.setCreatedTime("2024-02-29 23:59:58");
	std::vector<std::uint32_t> nums;
	for (unsigned int i = 0; i < elementCount; ++i)
		nums.push_back(2*i);	// every second element of the first row
	dio.setNums(nums);
	std::vector<double> timePoints;
	std::vector<std::vector<double> > values;
	const std::vector<double> all = awkwardDoubles(timePointCount*dio.nValues() + 1, 7);
	for (std::size_t t = 0; t < timePointCount; ++t) {
		timePoints.push_back(0.25*static_cast<double>(t) + 1e-7*static_cast<double>(t*t));
		values.emplace_back(all.begin() + static_cast<std::ptrdiff_t>(t*dio.nValues()),
							all.begin() + static_cast<std::ptrdiff_t>((t + 1)*dio.nValues()));
	}
	dio.setData(timePoints, values);
	return dio;
}

} // namespace DATAIO_Test
