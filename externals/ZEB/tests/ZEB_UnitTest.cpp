// This file is UTF-8: unit names contain "µ".
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <sstream>
#include <tuple>

#include <ZEB_Exception.h>
#include <ZEB_Unit.h>
#include <ZEB_UnitList.h>
#include <ZEB_UnitVector.h>

#include "ZEB_TestSupport.h"

namespace {

// All unit names in id order and the base units, typed by hand, independent of the table in the code.
const char * const NAMES =
	"undefined m mm cm dm m2 mm2 cm2 dm2 m3 mm3 cm3 dm3 s min h d a sqrt(s) sqrt(h) ms s/s min/s h/s d/s a/s "
	"m/s cm/s cm/h cm/d m2/s cm2/s m2/h cm2/h m/s2 s/m kg/m2sPa s2/m2 kg g mg kg/ms kg/s kg/h kg/d g/s g/h "
	"g/d g/a mg/s µg/s kg/m2 kg/dm2 g/dm2 g/cm2 mg/m2 kg/m2s g/m2s g/m2h g/m2d kg/m2h mg/m2s µg/m2s mg/m2h "
	"µg/m2h kg/m3 kg/dm3 g/dm3 g/cm3 g/m3 mg/m3 µg/m3 log(kg/m3) log(g/m3) log(mg/m3) log(µg/m3) kg/m3s "
	"g/m3s g/m3h kg/m3h mg/m3s µg/m3s mg/m3h µg/m3h kg/m g/m g/mm kg/mm kg/kg g/kg mg/kg J kJ MJ MWh kWh Wh "
	"J/m2 kJ/m2 MJ/m2 GJ/m2 J/dm2 J/cm2 kWh/m2 J/m3 Ws/m3 kJ/m3 MJ/m3 GJ/m3 J/dm3 J/cm3 kWh/m3 J/m3s kJ/m3s "
	"MJ/m3s J/dm3s J/cm3s J/m3h W/m3 kW/m3 MW/m3 W/dm3 W/cm3 W/mm3 J/m3K kJ/m3K J/s J/h J/d kJ/d W kW MW "
	"Nm/s J/kg kJ/kg J/kgK kJ/kgK Ws/kgK J/gK Ws/gK J/K kJ/K J/m2s W/m2 kW/m2 MW/m2 W/dm2 W/cm2 W/mK kW/mK "
	"W/m2K W/m2K2 W/mK2 l/m2s l/m2h l/m2d mm/d mm/h l/m3s l/m3h m3/m2s m3/m2h dm3/m2s dm3/m2h m3/m2sPa "
	"m3/m2hPa m3/s m3/h dm3/s dm3/h m3/m3 Vol% m3/m3d Vol%/d --- % 1 1/10 1/8 ---/d %/d K C 1/K K/m m2s/kg "
	"Pa hPa kPa Bar PSI Torr 1/Pa Pa/m kPa/m Lux kLux Rad Deg m2/kg m2K/W 1/m 1/cm logcm logm logPa K/Pa "
	"mol/kg mol/g kg/mol g/mol J/mol kJ/mol kg/m2s05 kg/m2h05 1/logcm mol/m3 mol/ltr mol/dm3 mol/cm3 mol "
	"mmol - mm/m m3m/m3m m3mm/m3m kg/m3sK g/m3sK g/m3hK kg/m3hK mg/m3sK µg/m3sK mg/m3hK µg/m3hK 1/s 1/min "
	"1/h W/m2s W/m2h kW/m2s MW/m2s W/dm2s W/cm2s Person/m2 W/Person kW/Person W/K kWh/m2a kWh/a m2/m3 Kh";

const char * const BASES =
	"undefined m m2 m3 s s/s m/s m2/s m/s2 s/m s2/m2 kg kg/ms kg/s kg/m2 kg/m2s kg/m3 kg/m3s kg/m kg/kg J "
	"J/m2 J/m3 J/m3s J/m3K J/s J/kg J/kgK J/K J/m2s W/mK W/m2K W/m2K2 W/mK2 l/m2s l/m3s m3/m2s m3/m2sPa "
	"m3/s m3/m3 m3/m3d --- ---/d K 1/K K/m m2s/kg Pa 1/Pa Pa/m Lux Rad m2/kg m2K/W 1/m logcm logm logPa "
	"K/Pa mol/kg kg/mol J/mol kg/m2s05 1/logcm mol/m3 mol - mm/m m3m/m3m kg/m3sK 1/s W/m2s Person/m2 "
	"W/Person W/K kWh/m2a kWh/a m2/m3 Kh";

std::vector<std::string> words(const char * text) {
	std::istringstream in(text);
	std::vector<std::string> w;
	for (std::string s; in >> s;)
		w.push_back(s);
	return w;
}

double conv(const char * from, const char * to, double v) {
	ZEB::UnitList::instance().convert(ZEB::Unit(from), ZEB::Unit(to), v);
	return v;
}

} // namespace


TEST(ZEBUnit, NamesIdsAndGroupsInTableOrder) {
	const ZEB::UnitList & list = ZEB::UnitList::instance();
	std::vector<std::string> names = words(NAMES), bases = words(BASES);
	ASSERT_EQ(names.size(), 252u);
	ASSERT_EQ(bases.size(), 79u);
	ASSERT_EQ(list.size(), 252u);
	std::size_t groups = 0;
	unsigned int base = 0;
	for (unsigned int i = 0; i < names.size(); ++i) {
		EXPECT_EQ(list.retrieve(i)->name(), names[i]);
		EXPECT_EQ(ZEB::Unit(names[i]).id(), i);
		EXPECT_EQ(ZEB::Unit(i).name(), names[i]);
		// groups are contiguous: a base unit starts a group, the others belong to the last base
		if (groups < bases.size() && names[i] == bases[groups]) {
			base = i;
			++groups;
		}
		EXPECT_EQ(ZEB::Unit(i).base_id(), base) << names[i];
	}
	EXPECT_EQ(groups, 79u);
	// the stray token of the "-" group is no unit; names are case-sensitive
	EXPECT_EQ(list.retrieve("mm/mK"), nullptr);
	EXPECT_EQ(list.retrieve("pa"), nullptr);
}


TEST(ZEBUnit, DerivedRowsFollowPhysics) {
	struct Fact { const char * from; const char * to; double expected; }; // 1 <from> = expected <to>
	const Fact facts[] = {
		// one row per kind of derivation: prefixes, times, compound, powers, volumes per area, percent
		{"kWh", "J", 3.6e6}, {"a", "s", 31536000}, {"d", "h", 24}, {"cm", "mm", 10}, {"dm3", "cm3", 1000},
		{"mm2", "dm2", 1e-4}, {"kg/m2", "g/dm2", 10}, {"kg/mm", "g/m", 1e6}, {"kWh/m3", "MJ/m3", 3.6},
		{"Bar", "Pa", 1e5}, {"cm/h", "m/s", 1/3.6e5}, {"m2/h", "cm2/s", 1e4/3600}, {"l/m2h", "mm/h", 1},
		{"dm3/m2h", "m3/m2s", 1/3.6e6}, {"µg/m2h", "g/m2s", 1e-6/3600}, {"g/a", "kg/s", 1e-3/31536000},
		{"kg/m2h05", "kg/m2s05", 1/60.0}, {"mol/ltr", "mol/m3", 1000}, {"kJ/d", "W", 1000/86400.0},
		{"Vol%/d", "m3/m3d", 0.01}, {"1/h", "1/min", 1/60.0}, {"J/gK", "kJ/kgK", 1}, {"µg/m3sK", "kg/m3hK", 3.6e-6},
		{"a/s", "h/s", 8760}, {"m3mm/m3m", "m3m/m3m", 1e-3}, {"1/10", "%", 10}, {"1/8", "---", 0.125},
		// rounded constants of the table: 1 Pa = 1.45038e-4 PSI = 7.50062e-3 Torr, 1 rad = 57.2958 deg
		{"Pa", "PSI", 0.000145038}, {"Pa", "Torr", 0.00750062}, {"Rad", "Deg", 57.2958},
	};
	for (const Fact & f : facts)
		EXPECT_NEAR(conv(f.from, f.to, 1), f.expected, 1e-14*f.expected) << f.from << " -> " << f.to;
}


TEST(ZEBUnit, ThereAndBackBetweenAllPairsOfEveryGroup) {
	const ZEB::UnitList & list = ZEB::UnitList::instance();
	std::map<unsigned int, std::vector<ZEB::Unit> > groups;
	for (unsigned int i = 0; i < list.size(); ++i)
		groups[list.retrieve(i)->base_id()].push_back(ZEB::Unit(i));
	ASSERT_EQ(groups.size(), 79u);
	for (const auto & g : groups)
		for (const ZEB::Unit & a : g.second)
			for (const ZEB::Unit & b : g.second) {
				// values inside the domains of square root and logarithm for the special units
				const bool special = list.retrieve(a.id())->isSpecial() || list.retrieve(b.id())->isSpecial();
				for (const double value : special ? std::vector<double>{0.37, 1.7, 12.5}
												  : std::vector<double>{0.37, -3.75, 12.5, 1234.5, 98765.4321}) {
					double v = value;
					list.convert(a, b, v);
					EXPECT_TRUE(std::isfinite(v));
					list.convert(b, a, v);
					EXPECT_NEAR(v, value, 1e-12*std::fabs(value)) << a.name() << " <-> " << b.name();
				}
			}
}


TEST(ZEBUnit, EdgeCasesAndUnitVectors) {
	// exact: one operation from unit to unit
	EXPECT_EQ(conv("C", "K", 20), 20 + 273.15);
	EXPECT_EQ(conv("log(g/m3)", "kg/m3", 3), 1);
	EXPECT_EQ(conv("sqrt(h)", "s", 2), 4*3600);
	EXPECT_EQ(conv("log(µg/m3)", "log(mg/m3)", 5), 2);

	ZEB::UnitVector vec(std::vector<double>{0, 9, 16}, ZEB::Unit("h"));
	vec.convert(ZEB::Unit("sqrt(h)"));
	EXPECT_EQ(vec.m_data, (std::vector<double>{0, 3, 4}));
	vec.convert(ZEB::Unit("min"));
	EXPECT_EQ(vec.m_data, (std::vector<double>{0, 540, 960}));
	EXPECT_EQ(vec.m_unit, ZEB::Unit("min"));
	// a failed conversion keeps the cause in the chain and leaves the values unchanged
	ZEB::UnitVector bad(std::vector<double>{4, -1}, ZEB::Unit("s"));
	try {
		bad.convert(ZEB::Unit("sqrt(s)"));
		ADD_FAILURE() << "no exception";
	}
	catch (ZEB::Exception & ex) {
		EXPECT_STREQ(ex.what(), "Conversion error (square-root of negative number)!");
		EXPECT_EQ(ex.messages().back().m_where, "[UnitVector::convert_special]");
		EXPECT_EQ(ex.messages().front().m_what, "Trying to take square root of negative number!");
	}
	EXPECT_EQ(bad.m_data, (std::vector<double>{4, -1}));
	EXPECT_EQ(bad.m_unit, ZEB::Unit("s"));
}


TEST(ZEBUnit, FailureMessages) {
	expectError([] { ZEB::Unit("pa"); }, "Unit 'pa' not found.", "[Unit::Unit]");
	expectError([] { ZEB::Unit(252u); }, "Unit index 252 out of range 0..251.", "[Unit::Unit]");
	EXPECT_THROW(ZEB::UnitList::instance().retrieve(252u), ZEB::Exception);
	const char * const relate = "[UnitList::relate_units]";
	const char * const special = "[UnitList::convert_special]";
	const std::vector<std::tuple<const char *, const char *, double, const char *, const char *> > conversions = {
		{"m", "s", 1, "Can't relate unit [m] to [s]", relate},
		{"s", "sqrt(s)", -1, "Trying to take square root of negative number!", special},
		{"g/m3", "log(g/m3)", 0, "Trying to take logarithm of zero or negative number!", special},

		{"log(kg/m3)", "kg/m3", 51, "Exponent too large in power function, exponent = 51", "[ZEB::f_pow10]"}};
	for (const auto & c : conversions)
		expectError([&] { conv(std::get<0>(c), std::get<1>(c), std::get<2>(c)); }, std::get<3>(c), std::get<4>(c));

	ZEB::ptr_list<int> owned;
	int * p = new int(1);
	owned.add(p);
	expectError([&] { owned.add(p); }, "Pointer already exists in the list.", "[ptr_list<T>::add]");
	EXPECT_EQ(owned.size(), 1u);
}


TEST(ZEBUnit, TableReaderRulesAndErrors) {
	ZEB::UnitList custom;
	custom.read_default(" a * 2 b ;; \n K - 273.15 C * 2 X  - 10 F; x * 1e-200 y / 1e-200 z; q lone ;");
	ASSERT_EQ(custom.size(), 10u); // "lone" is ignored like the stray "mm/mK"
	EXPECT_EQ(custom.retrieve("lone"), nullptr);
	// ids of the custom list: a0 b1 K2 C3 X4 F5 x6 y7 z8
	auto cconv = [&](unsigned int from, unsigned int to, double v) {
		custom.convert(ZEB::Unit(from), ZEB::Unit(to), v);
		return v;
	};
	EXPECT_DOUBLE_EQ(cconv(3, 5, 20), 283.15); // C -> F: two additive units, through K
	const char * const relate = "[UnitList::relate_units]";
	expectError([&] { cconv(3, 4, 1); },
		"* and / operations not allowed when using + and - operations! (tried to convert [C] to [X])", relate);
	EXPECT_THROW(cconv(4, 3, 1), ZEB::Exception);
	EXPECT_THROW(cconv(7, 8, 1), ZEB::Exception);	// division by zero

	const std::vector<std::pair<const char *, const char *> > badTables = {
		{"a * 2 b; c * 3 b", "Duplicate unit 'b' defined."},
		{"a / 0 b", "Invalid unit definition: factor = 0, but not a special unit conversion!"},
		{"a * x2 b", "Invalid unit definition: invalid factor 'x2' for unit 'b'."},

		{"a % 1 sqrt(a)", "Invalid unit definition: special unit conversion 'sqrt(a)' must have factor 0."},
		{"a % 0 cbrt(a)", "Invalid unit definition: special unit 'cbrt(a)' must be 'sqrt(<unit>)' or 'log(<unit>)' "
						  "of an ordinary unit of its group."}};
	for (const auto & t : badTables)
		expectError([&] { custom.read_default(t.first); }, t.second, "[UnitList::read_default]");
	EXPECT_EQ(custom.size(), 10u); // a failed read leaves the list unchanged
}
