#include "EM_CutType.h"

namespace EM {

namespace {

const unsigned int X = 1u << CD_X;
const unsigned int Y = 1u << CD_Y;
const unsigned int Z = 1u << CD_Z;
const unsigned int T = 1u << CD_Time;

/*! Keyword and fixed dimensions of each cut type, in the order of the enumeration. */
struct CutTypeEntry {
	const char *	m_keyword;
	unsigned int	m_mask;
};

const CutTypeEntry CUT_TYPES[NUM_CT] = {
	{ "NoCut",		0 },
	{ "TimeCut",	T },
	{ "XCut",		X },
	{ "YCut",		Y },
	{ "XYCut",		X | Y },
	{ "XZCut",		X | Z },
	{ "YZCut",		Y | Z },
	{ "XTCut",		X | T },
	{ "YTCut",		Y | T },
	{ "ZTCut",		Z | T },
	{ "XYZCut",		X | Y | Z },
	{ "XYTCut",		X | Y | T },
	{ "XZTCut",		X | Z | T },
	{ "YZTCut",		Y | Z | T }
};

} // namespace


const char * CutTypes::keyword(CutType type) {
	return type < NUM_CT ? CUT_TYPES[type].m_keyword : "";
}


CutType CutTypes::fromKeyword(const std::string & keyword) {
	for (int i = 0; i < NUM_CT; ++i)
		if (keyword == CUT_TYPES[i].m_keyword)
			return static_cast<CutType>(i);
	return NUM_CT;
}


bool CutTypes::isCut(CutType type, unsigned int dimension) {
	return dimension < NUM_CD && (dimensionMask(type) & (1u << dimension)) != 0;
}


unsigned int CutTypes::cutCount(CutType type) {
	unsigned int count = 0;
	for (unsigned int d = 0; d < NUM_CD; ++d)
		if (isCut(type, d))
			++count;
	return count;
}


unsigned int CutTypes::dimensionMask(CutType type) {
	return type < NUM_CT ? CUT_TYPES[type].m_mask : 0;
}

} // namespace EM
