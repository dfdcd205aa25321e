// This file is UTF-8: unit texts contain "°", "²" and "³".
#include "OVP_ReaderUnit.h"

#include <ZEB_StringUtils.h>
#include <ZEB_UnitList.h>

namespace OVP {

namespace {

/*! Unit texts of foreign files that differ from the unit table's names. */
const char * const ALIASES[][2] = {
	{ "°C", "C" }, { "degC", "C" }, { "deg C", "C" }, { "°K", "K" },
	{ "%RH", "%" }, { "% RH", "%" }, { "% rF", "%" }, { "%rF", "%" }, { "RH %", "%" }, { "RH%", "%" },
	{ "W/m²", "W/m2" }, { "m³", "m3" }, { "g/m³", "g/m3" }, { "kg/m³", "kg/m3" },
	{ "°", "Deg" }, { "deg", "Deg" }, { "m/sec", "m/s" }
};

} // namespace


bool ReaderUnit::fromText(const std::string & text, std::string & unit) {
	std::string t = ZEB::trimmed(text, " \t\r\n");
	if (t.size() >= 2 && ((t.front() == '[' && t.back() == ']') || (t.front() == '(' && t.back() == ')')))
		t = ZEB::trimmed(t.substr(1, t.size() - 2), " \t");
	unit = "-";
	if (t.empty() || t == "-")
		return true;
	for (const auto & alias : ALIASES)
		if (t == alias[0]) {
			unit = alias[1];
			return true;
		}
	if (ZEB::UnitList::instance().retrieve(t) == nullptr)
		return false;
	unit = t;
	return true;
}


void ReaderUnit::splitHeader(const std::string & header, std::string & name, std::string & unitText) {
	const std::string h = ZEB::trimmed(header, " \t\r\n");
	name = h;
	unitText.clear();
	if (h.empty())
		return;
	std::size_t open = std::string::npos;
	if (h.back() == ']')
		open = h.rfind('[');
	else if (h.back() == ')')
		open = h.rfind('(');
	if (open != std::string::npos && open > 0) {
		name = ZEB::trimmed(h.substr(0, open), " \t");
		unitText = ZEB::trimmed(h.substr(open + 1, h.size() - open - 2), " \t");
		return;
	}
	const std::size_t comma = h.rfind(',');
	if (comma != std::string::npos && comma > 0) {
		name = ZEB::trimmed(h.substr(0, comma), " \t");
		unitText = ZEB::trimmed(h.substr(comma + 1), " \t");
	}
}

} // namespace OVP
