#include "DATAIOFUZZ_Checks.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <ZEB_Exception.h>

#include <DATAIO_DataIO.h>
#include <DATAIO_GeoFile.h>

namespace DATAIOFUZZ {

namespace {

bool sameValue(double a, double b) {
	if (std::isnan(a) || std::isnan(b))
		return std::isnan(a) && std::isnan(b);
	return std::memcmp(&a, &b, sizeof(double)) == 0;
}

bool sameValues(const double * a, const double * b, std::size_t n) {
	for (std::size_t i = 0; i < n; ++i)
		if (!sameValue(a[i], b[i]))
			return false;
	return true;
}

bool sameValues(const std::vector<double> & a, const std::vector<double> & b) {
	return a.size() == b.size() && sameValues(a.data(), b.data(), a.size());
}

} // namespace


void Checks::fail(const std::string & message) {
	std::fprintf(stderr, "DataIOFuzz check failed: %s\n", message.c_str());
	std::abort();
}


void Checks::checkError(const ZEB::Exception & ex) {
	if (ex.messages().empty())
		fail("exception without message");
	if (ex.messages().back().m_where.empty())
		fail("exception without origin: " + ex.msgWithOrigin());
}


void Checks::checkSameContainer(DATAIO::DataIO & a, DATAIO::DataIO & b, const std::string & what) {
	if (a.type() != b.type() || a.spaceType() != b.spaceType() || a.timeType() != b.timeType())
		fail(what + ": enumerations differ");
	if (a.nums() != b.nums() || a.nValues() != b.nValues())
		fail(what + ": element/side numbers differ");
	if (a.quantity() != b.quantity() || a.quantityKeyword() != b.quantityKeyword() ||
		a.valueUnit() != b.valueUnit() || a.timeUnit() != b.timeUnit() ||
		a.projectFileName() != b.projectFileName() || a.startYear() != b.startYear())
		fail(what + ": header texts differ");
	if (!sameValues(a.timePoints(), b.timePoints()))
		fail(what + ": time points differ");
	if (a.timePoints().empty())
		return;
	const std::size_t n = a.nValues()*a.timePoints().size();
	if (!sameValues(a.dataVector(), b.dataVector(), n))
		fail(what + ": values differ");
}


void Checks::checkSameValues(const double * a, const double * b, std::size_t n, const std::string & what) {
	if (!sameValues(a, b, n))
		fail(what + ": values differ");
}


void Checks::checkSameGeometry(const DATAIO::GeoFile & a, const DATAIO::GeoFile & b, const std::string & what) {
	if (a.materials() != b.materials())
		fail(what + ": materials differ");
	if (!sameValues(a.xWidths(), b.xWidths()) || !sameValues(a.yWidths(), b.yWidths()) || !sameValues(a.zWidths(), b.zWidths()))
		fail(what + ": grid differs");
	if (a.elements().size() != b.elements().size() || a.sides().size() != b.sides().size())
		fail(what + ": table sizes differ");
	for (std::size_t i = 0; i < a.elements().size(); ++i) {
		const DATAIO::GeoFile::Element & x = a.elements()[i];
		const DATAIO::GeoFile::Element & y = b.elements()[i];
		if (x.m_n != y.m_n || !sameValue(x.m_x, y.m_x) || !sameValue(x.m_y, y.m_y) || !sameValue(x.m_z, y.m_z) ||
			x.m_matId != y.m_matId || x.m_i != y.m_i || x.m_j != y.m_j || x.m_k != y.m_k)
			fail(what + ": element " + std::to_string(i) + " differs");
	}
	for (std::size_t i = 0; i < a.sides().size(); ++i) {
		const DATAIO::GeoFile::Side & x = a.sides()[i];
		const DATAIO::GeoFile::Side & y = b.sides()[i];
		if (x.m_n != y.m_n || !sameValue(x.m_x, y.m_x) || !sameValue(x.m_y, y.m_y) || !sameValue(x.m_z, y.m_z) ||
			x.m_orientation != y.m_orientation || x.m_elementA != y.m_elementA || x.m_elementB != y.m_elementB)
			fail(what + ": side " + std::to_string(i) + " differs");
	}
}

} // namespace DATAIOFUZZ
