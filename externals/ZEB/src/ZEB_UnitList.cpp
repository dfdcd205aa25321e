// This file is UTF-8: unit names contain "µ".
#include "ZEB_UnitList.h"

#include <cmath>
#include <memory>

#include "ZEB_Math.h"
#include "ZEB_MessageFormat.h"
#include "ZEB_StringUtils.h"
#include "ZEB_Unit.h"

namespace ZEB {

namespace {

/*! The built-in unit table: 79 groups separated by ";", 252 units.
	Each group: base unit, then triples (operator, factor, unit name); the operator says how a
	value in the new unit follows from the base value ("*": base * factor, "/": base / factor,
	"-": base - factor, "%" with factor 0: special conversion by code).

	The established rows are kept exactly as users know them (including odd factors such
	as "* 31536e6 g/a", "0.000145038 PSI", "Rad * 57.2958 Deg" and the long decimals of the
	"W/m2s" group). All other factors follow from the unit definitions, e.g.
	1 kg/m2 = 1000 g / 100 dm2 = 10 g/dm2, 1 kg/m = 1000 g / 1000 mm = 1 g/mm,
	1 kg/m2s^0.5 = 60 kg/m2h^0.5 (sqrt(3600 s) = 60 sqrt(s)), 1 m3m/m3m = 1000 m3mm/m3m (m -> mm).

	The group of "-" carries the stray token "mm/mK" with no operator and factor; the reader
	ignores such a lone trailing token, so "mm/mK" is no unit and the count stays 252.
*/
const char * const DEFAULT_UNIT_TABLE =
	"undefined;"
	"m * 1e+03 mm * 100 cm * 10 dm;"
	"m2 * 1e+06 mm2 * 1e+04 cm2 * 100 dm2;"
	"m3 * 1e+09 mm3 * 1e+06 cm3 * 1000 dm3;"
	"s / 60 min / 3600 h / 86400 d / 3.1536e+07 a % 0 sqrt(s) % 0 sqrt(h) * 1000 ms;"
	"s/s / 60 min/s / 3600 h/s / 86400 d/s / 3.1536e+07 a/s;"
	"m/s * 100 cm/s * 3.6e+05 cm/h * 8.64e+06 cm/d;"
	"m2/s * 1e+04 cm2/s * 3600 m2/h * 3.6e+07 cm2/h;"
	"m/s2;"
	"s/m * 1 kg/m2sPa;"
	"s2/m2;"
	"kg * 1000 g * 1e+06 mg;"
	"kg/ms;"
	"kg/s * 3600 kg/h * 86400 kg/d * 1000 g/s * 3.6e+06 g/h * 8.64e+07 g/d * 31536e6 g/a"
		" * 1e+06 mg/s * 1e+09 µg/s;"
	"kg/m2 / 100 kg/dm2 * 10 g/dm2 / 10 g/cm2 * 1e+06 mg/m2;"
	"kg/m2s * 1000 g/m2s * 3.6e+06 g/m2h * 8.64e+07 g/m2d * 3600 kg/m2h * 1e+06 mg/m2s"
		" * 1e+09 µg/m2s * 3.6e+09 mg/m2h * 3.6e+12 µg/m2h;"
	"kg/m3 / 1000 kg/dm3 * 1 g/dm3 / 1000 g/cm3 * 1000 g/m3 * 1e6 mg/m3 * 1e9 µg/m3"
		" % 0 log(kg/m3) % 0 log(g/m3) % 0 log(mg/m3) % 0 log(µg/m3);"
	"kg/m3s * 1000 g/m3s * 3.6e+06 g/m3h * 3600 kg/m3h * 1e+06 mg/m3s * 1e+09 µg/m3s"
		" * 3.6e+09 mg/m3h * 3.6e+12 µg/m3h;"
	"kg/m * 1000 g/m * 1 g/mm / 1000 kg/mm;"
	"kg/kg * 1000 g/kg * 1e+06 mg/kg;"
	"J / 1000 kJ / 1e+06 MJ / 3.6e+09 MWh / 3.6e+06 kWh / 3600 Wh;"
	"J/m2 / 1000 kJ/m2 / 1e+06 MJ/m2 / 1e+09 GJ/m2 / 100 J/dm2 / 1e+04 J/cm2 / 3.6e+06 kWh/m2;"
	"J/m3 * 1 Ws/m3 / 1000 kJ/m3 / 1e+06 MJ/m3 / 1e+09 GJ/m3 / 1000 J/dm3 / 1e+06 J/cm3"
		" / 3.6e+06 kWh/m3;"
	"J/m3s / 1000 kJ/m3s / 1e+06 MJ/m3s / 1000 J/dm3s / 1e+06 J/cm3s * 3600 J/m3h * 1 W/m3"
		" / 1000 kW/m3 / 1e+06 MW/m3 / 1000 W/dm3 / 1e+06 W/cm3 / 1e+09 W/mm3;"
	"J/m3K / 1000 kJ/m3K;"
	"J/s * 3600 J/h * 86400 J/d * 86.4 kJ/d * 1 W / 1000 kW / 1e+06 MW * 1 Nm/s;"
	"J/kg / 1000 kJ/kg;"
	"J/kgK / 1000 kJ/kgK * 1 Ws/kgK / 1000 J/gK / 1000 Ws/gK;"
	"J/K / 1000 kJ/K;"
	"J/m2s * 1 W/m2 / 1000 kW/m2 / 1e+06 MW/m2 / 100 W/dm2 / 1e+04 W/cm2;"
	"W/mK / 1000 kW/mK;"
	"W/m2K;"
	"W/m2K2;"
	"W/mK2;"
	"l/m2s * 3600 l/m2h * 86400 l/m2d * 86400 mm/d * 3600 mm/h;"
	"l/m3s * 3600 l/m3h;"
	"m3/m2s * 3600 m3/m2h * 1000 dm3/m2s * 3.6e+06 dm3/m2h;"
	"m3/m2sPa * 3600 m3/m2hPa;"
	"m3/s * 3600 m3/h * 1000 dm3/s * 3.6e+06 dm3/h;"
	"m3/m3 * 100 Vol%;"
	"m3/m3d * 100 Vol%/d;"
	"--- * 100 % * 1 1 * 10 1/10 * 8 1/8;"
	"---/d * 100 %/d;"
	"K - 273.15 C;"
	"1/K;"
	"K/m;"
	"m2s/kg;"
	"Pa / 100 hPa / 1000 kPa * 1e-05 Bar * 0.000145038 PSI * 0.00750062 Torr;"
	"1/Pa;"
	"Pa/m / 1000 kPa/m;"
	"Lux / 1000 kLux;"
	"Rad * 57.2958 Deg;"
	"m2/kg;"
	"m2K/W;"
	"1/m / 100 1/cm;"
	"logcm;"
	"logm;"
	"logPa;"
	"K/Pa;"
	"mol/kg / 1000 mol/g;"
	"kg/mol * 1000 g/mol;"
	"J/mol / 1000 kJ/mol;"
	"kg/m2s05 * 60 kg/m2h05;"
	"1/logcm;"
	"mol/m3 / 1000 mol/ltr / 1000 mol/dm3 / 1e+06 mol/cm3;"
	"mol * 1000 mmol;"
	"- mm/mK;"
	"mm/m;"
	"m3m/m3m * 1000 m3mm/m3m;"
	"kg/m3sK * 1000 g/m3sK * 3.6e+06 g/m3hK * 3600 kg/m3hK * 1e+06 mg/m3sK * 1e+09 µg/m3sK"
		" * 3.6e+09 mg/m3hK * 3.6e+12 µg/m3hK;"
	"1/s * 60 1/min * 3600 1/h;"
	"W/m2s * 3600.0000000 W/m2h / 1000.0000000 kW/m2s / 1.000000e+06 MW/m2s"
		" / 100.0000000 W/dm2s / 10000.0000000 W/cm2s;"
	"Person/m2;"
	"W/Person / 1000 kW/Person;"
	"W/K;"
	"kWh/m2a;"
	"kWh/a;"
	"m2/m3;"
	"Kh;";

/*! Splits at runs of blanks, tabs, carriage returns and line feeds. */
std::vector<std::string> splitTokens(const std::string & text) {
	std::vector<std::string> tokens;
	const char * ws = " \t\r\n";
	std::size_t pos = text.find_first_not_of(ws);
	while (pos != std::string::npos) {
		std::size_t end = text.find_first_of(ws, pos);
		tokens.push_back(text.substr(pos, end == std::string::npos ? std::string::npos : end - pos));
		pos = (end == std::string::npos) ? end : text.find_first_not_of(ws, end);
	}
	return tokens;
}

/*! Text "(tried to convert [a] to [b])" that completes the conversion messages. */
std::string triedText(const UnitData & a, const UnitData & b) {
	return "(tried to convert [" + a.name() + "] to [" + b.name() + "])";
}

/*! Offset of a unit for additive conversions: value = base - offset. Multiplicative units of
	factor 1 (the base unit in particular) have offset 0.
*/
double additiveOffset(const UnitData & u) {
	if (u.operation() == UnitData::OP_SUB)
		return u.factor();
	if (u.operation() == UnitData::OP_ADD)
		return -u.factor();
	return 0;
}

} // namespace


const UnitList & UnitList::instance() {
	// created at first use and never destroyed: units may be used until the process ends
	static const UnitList * const list = [] {
		std::unique_ptr<UnitList> l(new UnitList);
		l->read_default();
		return l.release();
	}();
	return *list;
}


const char * UnitList::defaultTable() {
	return DEFAULT_UNIT_TABLE;
}


void UnitList::read_default() {
	read_default(DEFAULT_UNIT_TABLE);
}


void UnitList::read_default(const std::string & table) {
	FUNCID(UnitList::read_default);
	// build into new containers; *this changes only on success
	ptr_list<UnitData> list;
	std::unordered_map<std::string, unsigned int> index;

	auto define = [&](const std::string & name, bool isBase, unsigned int baseId,
					  UnitData::Operation op, double factor) -> unsigned int
	{
		if (index.find(name) != index.end())
			throw Exception(MessageFormat("Duplicate unit '%1' defined.").arg(name), FUNC_ID);
		unsigned int id = static_cast<unsigned int>(list.size());
		std::unique_ptr<UnitData> data(new UnitData(id, name, isBase ? id : baseId, op, factor));
		list.add(data.get());
		data.release();
		index.emplace(name, id);
		return id;
	};

	for (const std::string & group : explode(table, ';')) {
		std::vector<std::string> tokens = splitTokens(group);
		if (tokens.empty())
			continue;
		unsigned int baseId = define(tokens[0], true, 0, UnitData::OP_MUL, 1);
		std::size_t i = 1;
		while (i < tokens.size()) {
			std::size_t left = tokens.size() - i;
			// a lone token without operator and factor is ignored (the stray "mm/mK" of "-")
			if (left == 1)
				break;
			if (left == 2)
				throw Exception(MessageFormat("Invalid unit definition: incomplete definition '%1 %2' in group of unit '%3'.")
								.arg(tokens[i]).arg(tokens[i+1]).arg(tokens[0]), FUNC_ID);
			const std::string & opText = tokens[i];
			const std::string & factorText = tokens[i+1];
			const std::string & name = tokens[i+2];
			UnitData::Operation op;
			if (opText == "*")		op = UnitData::OP_MUL;
			else if (opText == "/")	op = UnitData::OP_DIV;
			else if (opText == "-")	op = UnitData::OP_SUB;
			else if (opText == "%")	op = UnitData::OP_SPECIAL;
			else
				throw Exception(MessageFormat("Invalid unit definition: unknown operator '%1' for unit '%2'.")
								.arg(opText).arg(name), FUNC_ID);
			double factor = 0;
			if (!parseDouble(factorText.data(), factorText.data() + factorText.size(), factor) || !std::isfinite(factor))
				throw Exception(MessageFormat("Invalid unit definition: invalid factor '%1' for unit '%2'.")
								.arg(factorText).arg(name), FUNC_ID);
			if (factor == 0 && op != UnitData::OP_SPECIAL)
				throw Exception("Invalid unit definition: factor = 0, but not a special unit conversion!", FUNC_ID);
			if (factor != 0 && op == UnitData::OP_SPECIAL)
				throw Exception(MessageFormat("Invalid unit definition: special unit conversion '%1' must have factor 0.")
								.arg(name), FUNC_ID);
			define(name, false, baseId, op, factor);
			i += 3;
		}
	}

	// special units: "sqrt(<inner>)" or "log(<inner>)", the inner unit an ordinary unit of the same group
	for (UnitData * d : list) {
		if (!d->isSpecial())
			continue;
		const std::string & n = d->name();
		UnitData::SpecialFunction fn = UnitData::SF_NONE;
		std::string inner;
		if (n.size() > 6 && n.compare(0, 5, "sqrt(") == 0 && n.back() == ')') {
			fn = UnitData::SF_SQRT;
			inner = n.substr(5, n.size() - 6);
		}
		else if (n.size() > 5 && n.compare(0, 4, "log(") == 0 && n.back() == ')') {
			fn = UnitData::SF_LOG10;
			inner = n.substr(4, n.size() - 5);
		}
		auto it = index.find(inner);
		if (fn == UnitData::SF_NONE || it == index.end() || list[it->second]->base_id() != d->base_id()
			|| list[it->second]->isSpecial())
		{
			throw Exception(MessageFormat("Invalid unit definition: special unit '%1' must be 'sqrt(<unit>)' "
										  "or 'log(<unit>)' of an ordinary unit of its group.").arg(n), FUNC_ID);
		}
		d->m_special = fn;
		d->m_innerId = it->second;
	}

	m_list.swap(list);
	m_index.swap(index);
}


const UnitData * UnitList::retrieve(const std::string & name) const {
	auto it = m_index.find(name);
	if (it == m_index.end())
		return nullptr;
	return m_list[it->second];
}


const UnitData * UnitList::retrieve(unsigned int id) const {
	FUNCID(UnitList::retrieve);
	if (id >= m_list.size())
		throw Exception(MessageFormat("Unit index %1 out of range 0..%2.").arg(id)
						.arg(static_cast<long long>(m_list.size()) - 1), FUNC_ID);
	return m_list[id];
}


const UnitData & UnitList::entry(const Unit & u) const {
	return *retrieve(u.id());
}


void UnitList::relate_units(const Unit & src, const Unit & target, double & factor, UnitData::Operation & op) const {
	FUNCID(UnitList::relate_units);
	const UnitData & a = entry(src);
	const UnitData & b = entry(target);
	if (a.base_id() != b.base_id())
		throw Exception(MessageFormat("Can't relate unit [%1] to [%2]").arg(a.name()).arg(b.name()), FUNC_ID);

	if (a.id() == b.id()) {
		factor = 1;
		op = UnitData::OP_MUL;
		return;
	}
	if (a.isSpecial() || b.isSpecial()) {
		factor = 0;
		op = UnitData::OP_SPECIAL;
		return;
	}

	// additive conversions: only between "-" units and multiplicative units of factor 1 (the base)
	if (a.isAdditive() || b.isAdditive()) {
		if (!a.isAdditive() && a.factor() != 1)
			throw Exception("+ and - operations not allowed when using * and / operations! " + triedText(a, b), FUNC_ID);
		if (!b.isAdditive() && b.factor() != 1)
			throw Exception("* and / operations not allowed when using + and - operations! " + triedText(a, b), FUNC_ID);
		// target = src + offset(src) - offset(target)
		double d = additiveOffset(a) - additiveOffset(b);
		if (d >= 0) {
			op = UnitData::OP_ADD;
			factor = d;
		}
		else {
			op = UnitData::OP_SUB;
			factor = -d;
		}
		return;
	}

	// multiplicative: target = src * num / den; one division of two products keeps exact
	// factors exact (h -> min: 3600/60 = 60)
	double num = 1;
	double den = 1;
	if (a.operation() == UnitData::OP_MUL)	den *= a.factor();
	else									num *= a.factor();
	if (b.operation() == UnitData::OP_MUL)	num *= b.factor();
	else									den *= b.factor();
	if (num == 0 || den == 0 || !std::isfinite(num) || !std::isfinite(den))
		throw Exception("Div by zero! " + triedText(a, b), FUNC_ID);
	if (std::fabs(num) >= std::fabs(den)) {
		op = UnitData::OP_MUL;
		factor = num / den;
	}
	else {
		op = UnitData::OP_DIV;
		factor = den / num;
	}
	if (factor == 0 || !std::isfinite(factor))
		throw Exception("Div by zero! " + triedText(a, b), FUNC_ID);
}


void UnitList::convert(const Unit & src, const Unit & target, double & val) const {
	double factor;
	UnitData::Operation op;
	relate_units(src, target, factor, op);
	switch (op) {
		case UnitData::OP_MUL:		val *= factor; break;
		case UnitData::OP_DIV:		val /= factor; break; // factor != 0, see relate_units
		case UnitData::OP_ADD:		val += factor; break;
		case UnitData::OP_SUB:		val -= factor; break;
		case UnitData::OP_SPECIAL:	convert_special(src, target, val); break;
	}
}


double UnitList::toBase(const UnitData & u, double value) {
	switch (u.operation()) {
		case UnitData::OP_MUL:	return value / u.factor();
		case UnitData::OP_DIV:	return value * u.factor();
		case UnitData::OP_SUB:	return value + u.factor();
		case UnitData::OP_ADD:	return value - u.factor();
		case UnitData::OP_SPECIAL: break;
	}
	return value;
}


double UnitList::fromBase(const UnitData & u, double baseValue) {
	switch (u.operation()) {
		case UnitData::OP_MUL:	return baseValue * u.factor();
		case UnitData::OP_DIV:	return baseValue / u.factor();
		case UnitData::OP_SUB:	return baseValue - u.factor();
		case UnitData::OP_ADD:	return baseValue + u.factor();
		case UnitData::OP_SPECIAL: break;
	}
	return baseValue;
}


void UnitList::convert_special(const Unit & src, const Unit & target, double & val) const {
	FUNCID(UnitList::convert_special);
	const UnitData & a = entry(src);
	const UnitData & b = entry(target);
	if (a.base_id() != b.base_id()) {
		double f;
		UnitData::Operation op;
		relate_units(src, target, f, op); // throws "Can't relate unit [...
	}
	if (a.id() == b.id())
		return;

	// source -> base
	double v = val;
	if (a.isSpecial()) {
		if (a.specialFunction() == UnitData::SF_SQRT)
			v = v*v;
		else
			v = f_pow10(v); // throws for exponents above 50
		v = toBase(*m_list[a.innerId()], v);
	}
	else
		v = toBase(a, v);

	// base -> target
	if (b.isSpecial()) {
		v = fromBase(*m_list[b.innerId()], v);
		if (b.specialFunction() == UnitData::SF_SQRT) {
			if (v < 0)
				throw Exception("Trying to take square root of negative number!", FUNC_ID);
			v = std::sqrt(v);
		}
		else {
			if (!(v > 0))
				throw Exception("Trying to take logarithm of zero or negative number!", FUNC_ID);
			v = std::log10(v);
		}
	}
	else
		v = fromBase(b, v);
	val = v;
}

} // namespace ZEB
