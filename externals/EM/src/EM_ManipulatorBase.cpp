#include "EM_ManipulatorBase.h"

#include <cmath>
#include <cstdio>

#include <ZEB_Exception.h>
#include <ZEB_StringUtils.h>

namespace EM {

ManipulatorBase::~ManipulatorBase() = default;


const char * ManipulatorBase::typeKeyword(ManipulatorType type) {
	switch (type) {
		case MT_2DScaling:			return "2DScaling";
		case MT_2DOffset:			return "2DOffset";
		case MT_2DDifference2First:	return "2DDifference2First";
		case NUM_MT:				break;
	}
	return "";
}


std::string ManipulatorBase::numberText(double value) {
	char buf[40];
	std::snprintf(buf, sizeof(buf), "%.12g", value);
	return buf;
}


double ManipulatorBase::parseNumber(const std::string & text, const char * functionId) {
	double value = 0;
	try {
		value = ZEB::string2val<double>(text);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, "Invalid parameter, expected floating point number.", functionId);
	}
	// "nan" and "inf" parse as numbers but would destroy every value of the series
	if (!std::isfinite(value))
		throw ZEB::Exception("Invalid parameter, expected floating point number.", functionId);
	return value;
}

} // namespace EM
