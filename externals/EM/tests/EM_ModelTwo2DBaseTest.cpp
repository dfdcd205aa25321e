#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <map>
#include <memory>
#include <random>
#include <sstream>

#include <DATAIO_DataIO.h>
#include <ZEB_LinearSpline.h>
#include <ZEB_UnitVector.h>

#include <EM_Factory.h>
#include <EM_ModelTwo2DBase.h>
#include <EM_ModelTwo2DViitanenMould.h>

#include "EM_ExtractorTestUtils.h"
#include "EM_TestUtils.h"

using EMTest::constantSeries;
using EMTest::expectError;

namespace {

/*! A model whose result is the resampled data: x the grid, y the temperatures; the humidities
	are kept. Lets the tests look at the base's resampling alone.
*/
class GridProbe : public EM::ModelTwo2DBase {
public:
	explicit GridProbe(double step, const char * timeUnit = "h") : EM::ModelTwo2DBase(timeUnit), m_step(step) {}
	const char * typeKeyword() const override { return "GridProbe"; }
	const char * title() const override { return "GridProbe"; }
	std::string valueLabel() const override { return "T"; }
	ZEB::Unit valueUnit() const override { return temperatureUnit(); }
	std::string parameter() const override { return std::string(); }
	void setFromParameter(const std::string &) override {}
	std::vector<EM::ModelParameter> parameterDescriptions() const override { return {}; }

	std::vector<double> m_humidity;

protected:
	void compute(const EM::TimeSeries & first, const EM::TimeSeries & second, ZEB::UnitVector & x, ZEB::UnitVector & y) override {
		unifiedData(first, second, x.m_data, y.m_data, m_humidity, m_step);
		x.m_unit = timeUnit();
	}

private:
	double m_step;
};

/*! An in-memory output container holding a time series with nValues values per time point. */
std::unique_ptr<DATAIO::DataIO> container(const EM::TimeSeries & s, unsigned int nValues = 1,
										  DATAIO::DataIO::DataFormat format = DATAIO::DataIO::DF_2D)
{
	std::vector<std::uint32_t> nums;
	for (std::uint32_t n = 0; n < nValues; ++n)
		nums.push_back(n);
	std::vector<std::vector<double> > values;
	for (double v : s.m_values)
		values.push_back(std::vector<double>(nValues, v));
	return EMTest::fieldContainer(nums, s.m_time, values, format, DATAIO::DataIO::T_FIELD,
								  s.m_valueUnit.name().c_str(), s.m_timeUnit.name().c_str());
}

} // namespace


TEST(EMModelBase, ResamplingMatchesSpline) {
	// irregular time points and rough values: the grid values are those of the foundation's
	// linear spline over each input, on the overlap of both, the last partial step dropped. The
	// result does not depend on the order of the inputs nor on their units (humidity times in
	// minutes, temperatures in K, humidities as fractions).
	std::mt19937 gen(11);
	std::uniform_real_distribution<double> gap(0.01, 3), value(-50, 150);
	for (int round = 0; round < 20; ++round) {
		EM::TimeSeries t, rh;
		t.m_timeUnit = ZEB::Unit("h");
		t.m_valueUnit = ZEB::Unit("C");
		rh.m_timeUnit = ZEB::Unit("h");
		rh.m_valueUnit = ZEB::Unit("%");
		double tt = gap(gen) * round;
		double tr = gap(gen) * round;
		for (int i = 0; i < 300; ++i) {
			t.m_time.push_back(tt += gap(gen));
			t.m_values.push_back(value(gen));
			rh.m_time.push_back(tr += gap(gen));
			rh.m_values.push_back(value(gen));
		}
		GridProbe probe(0.37);
		ZEB::UnitVector x, y;
		ZEB::LinearSpline splineT(t.m_time, t.m_values), splineRH(rh.m_time, rh.m_values);
		const bool converted = round % 2 == 1;
		if (converted) {
			rh.m_timeUnit = ZEB::Unit("min");
			rh.m_valueUnit = ZEB::Unit("---");
			t.m_valueUnit = ZEB::Unit("K");
			for (std::size_t i = 0; i < rh.m_time.size(); ++i) {
				rh.m_time[i] *= 60;
				rh.m_values[i] /= 100;
				t.m_values[i] += 273.15;
			}
			probe.calculate(rh, t, x, y);
		}
		else
			probe.calculate(t, rh, x, y);
		const double start = std::max(t.m_time.front(), splineRH.x().front());
		const double end = std::min(t.m_time.back(), splineRH.x().back());
		ASSERT_EQ(x.size(), static_cast<std::size_t>((end - start) / 0.37) + 1);
		EXPECT_EQ(x.m_unit, ZEB::Unit("h"));
		const double tolerance = converted ? 1e-6 : 0;
		for (std::size_t k = 0; k < x.size(); ++k) {
			ASSERT_NEAR(x.m_data[k], start + k * 0.37, tolerance);
			ASSERT_NEAR(y.m_data[k], splineT.value(x.m_data[k]), tolerance) << k;
			ASSERT_NEAR(probe.m_humidity[k], splineRH.value(x.m_data[k]), tolerance) << k;
		}
	}
}


TEST(EMModelBase, RecordedValuesSurviveResampling) {
	// Values recorded to 0.1 that sit on the models' thresholds (0, 20 and 50 C for mould,
	// 80/85 % critical humidity, 95 % wood activation, 99.999 and 100 %) and their neighbours,
	// a year of hourly records in several time units. Every grid point meets a record, so the
	// model must see each recorded value exactly, not one unit in the last place off.
	const std::vector<double> thresholds = { 0, 20, 50, 80, 85, 95, 99.999, 100, 19.9, 20.1, 94.9, 95.1, -0.1, 0.1 };
	struct TimeBase { const char * unit; double perHour; };
	for (const TimeBase & base : { TimeBase{"s", 3600}, TimeBase{"min", 60}, TimeBase{"h", 1}, TimeBase{"d", 1.0/24} }) {
		EM::TimeSeries t, rh;
		t.m_timeUnit = rh.m_timeUnit = ZEB::Unit(base.unit);
		t.m_valueUnit = ZEB::Unit("C");
		rh.m_valueUnit = ZEB::Unit("%");
		for (int h = 0; h < 8760; ++h) {
			t.m_time.push_back(h * base.perHour);
			rh.m_time.push_back(h * base.perHour);
			t.m_values.push_back(thresholds[h % thresholds.size()]);
			rh.m_values.push_back(thresholds[(h * 7 + 3) % thresholds.size()]);
		}
		GridProbe days(1.0/24, "d"), hours(1, "h");
		for (GridProbe * probe : { &days, &hours }) {
			ZEB::UnitVector x, y;
			probe->calculate(t, rh, x, y);
			ASSERT_EQ(x.size(), 8760u) << base.unit;
			std::size_t changed = 0;
			for (std::size_t k = 0; k < x.size(); ++k)
				if (y.m_data[k] != t.m_values[k] || probe->m_humidity[k] != rh.m_values[k])
					++changed;
			EXPECT_EQ(changed, 0u) << "time unit " << base.unit << ", model unit " << x.m_unit.name();
		}
	}
}


TEST(EMModelBase, EdgeAndFaultyInputs) {
	EM::ModelTwo2DViitanenMould model;
	const char * const where = "[ModelTwo2DBase::unifiedData]";
	ZEB::UnitVector x(2, 1.0), y(2, 7.0);
	EM::TimeSeries t = constantSeries(48, 20, "C");
	EM::TimeSeries rh = constantSeries(48, 90, "%");
	// each fault is reported, and leaves the previous result untouched
	const auto expectFault = [&](const EM::TimeSeries & a, const EM::TimeSeries & b, const std::string & msg) {
		expectError([&]() { model.calculate(a, b, x, y); }, msg, where);
		EXPECT_EQ(x.m_data, (std::vector<double>{ 1, 1 })) << msg;
		EXPECT_EQ(y.m_data, (std::vector<double>{ 7, 7 })) << msg;
	};
	EM::TimeSeries badTime = t;
	badTime.m_timeUnit = ZEB::Unit("C");
	expectFault(badTime, rh, "x value unit of data set 1 is not time");
	badTime.m_timeUnit = ZEB::Unit();
	expectFault(rh, badTime, "x value unit of data set 2 is not time");
	// two temperatures, or a quantity that is neither
	expectFault(t, t, "Expected a temperature and a relative humidity, but the value units of the data sets are 'C' and 'C'.");
	expectFault(constantSeries(48, 1, "kg"), rh,
				"Expected a temperature and a relative humidity, but the value units of the data sets are 'kg' and '%'.");
	// a humidity without unit is read as a fraction, and one above 1 is none
	expectFault(t, constantSeries(48, 90, "-"), "Relative humidity of data set 2 has no unit ('-') and is read as a "
				"fraction from 0 to 1, but it holds the value 90.");
	// time points that do not increase, values that are not finite
	EM::TimeSeries unsorted = rh;
	std::swap(unsorted.m_time[3], unsorted.m_time[4]);
	expectFault(t, unsorted, "Invalid time points or values in data set 2.");
	EM::TimeSeries infinite = t;
	infinite.m_values[7] = HUGE_VAL;
	expectFault(rh, infinite, "Invalid time points or values in data set 2.");
	// a grid far too large for memory
	try {
		model.calculate(constantSeries(2, 20, "C", 1e12, "a"), constantSeries(2, 90, "%", 1e12, "a"), x, y);
		ADD_FAILURE() << "no exception";
	}
	catch (ZEB::Exception & ex) {
		EXPECT_EQ(ex.messages().back().m_where, where);
	}

	// inputs touching in one point give one grid point, so does a single point each; an empty
	// input gives an empty result (inputs apart in time are the extractor test's)
	model.calculate(constantSeries(10, 20, "C", 1, "h", 0), constantSeries(10, 90, "%", 1, "h", 9), x, y);
	EXPECT_EQ(y.m_data, std::vector<double>{ 0 });
	model.calculate(constantSeries(1, 20, "C", 1, "h", 5), constantSeries(1, 90, "%", 1, "h", 5), x, y);
	EXPECT_EQ(x.size(), 1u);
	model.calculate(constantSeries(0, 20, "C"), rh, x, y);
	EXPECT_TRUE(x.empty());
}


TEST(EMModelBase, Containers) {
	EM::ModelTwo2DViitanenMould model;
	const char * const where = "[ModelTwo2DBase::unifiedData]";
	const std::uint32_t single = EM::ModelTwo2DBase::SINGLE_VALUE;
	EM::TimeSeries t = constantSeries(72, 25, "C");
	EM::TimeSeries rh = constantSeries(72, 95, "%");
	std::unique_ptr<DATAIO::DataIO> dT = container(t);
	std::unique_ptr<DATAIO::DataIO> dRH = container(rh);
	ZEB::UnitVector x, y, xRef, yRef;
	const auto calc = [&](DATAIO::DataIO * a, DATAIO::DataIO * b) { model.calculate(a, single, b, single, x, y); };

	model.calculate(t, rh, xRef, yRef);
	calc(dRH.get(), dT.get());
	EXPECT_EQ(x.m_data, xRef.m_data);
	EXPECT_EQ(y.m_data, yRef.m_data);
	EXPECT_EQ(y.m_unit, ZEB::Unit("-"));

	expectError([&]() { calc(nullptr, dT.get()); }, "At least one dataio object not valid", where);
	expectError([&]() { calc(dT.get(), nullptr); }, "At least one dataio object not valid", where);
	// a field, and 2D with several values: as first or second data set
	std::unique_ptr<DATAIO::DataIO> field = container(t, 3, DATAIO::DataIO::DF_3D);
	std::unique_ptr<DATAIO::DataIO> columns = container(t, 2, DATAIO::DataIO::DF_2D);
	for (int second = 0; second < 2; ++second) {
		const std::string n = second ? "2" : "1";
		expectError([&]() { second ? calc(dT.get(), field.get()) : calc(field.get(), dRH.get()); }, "Data set " + n + " is not 2D", where);
		expectError([&]() { second ? calc(dT.get(), columns.get()) : calc(columns.get(), dRH.get()); },
					"Data set " + n + " is not a single-value 2D", where);
	}
	// a column is only picked from a reference collection
	expectError([&]() { model.calculate(dT.get(), single, dRH.get(), 0, x, y); }, "Data set 2 has no column 0.", where);

	// unknown unit names count as no unit
	dT->setTimeUnit("hours");
	expectError([&]() { calc(dT.get(), dRH.get()); }, "x value unit of data set 1 is not time", where);

	// an empty container gives an empty result
	std::unique_ptr<DATAIO::DataIO> empty = container(constantSeries(0, 0, "%"));
	dT->setTimeUnit("h");
	calc(dT.get(), empty.get());
	EXPECT_TRUE(x.empty());
	EXPECT_TRUE(y.empty());

	// a container whose time points do not increase
	std::swap(rh.m_time[1], rh.m_time[2]);
	std::unique_ptr<DATAIO::DataIO> unsorted = container(rh);
	expectError([&]() { calc(dT.get(), unsorted.get()); }, "Error reading values of data set 2.",
				"[ModelTwo2DBase::seriesFromDataIO]");
}


TEST(EMModelBase, GapsAreSkippedAndCounted) {
	// hourly values with two absent hours (5 and 6) and an absent first hour
	EM::TimeSeries t = constantSeries(12, 20, "C");
	EM::TimeSeries rh = constantSeries(12, 95, "%");
	for (std::size_t i = 0; i < 12; ++i)
		t.m_values[i] = static_cast<double>(i);
	t.m_values[5] = t.m_values[6] = std::nan("");
	rh.m_values[0] = std::nan("");
	t.m_name = "wall.csv: Temp";

	// on a half-hour grid, every point in an interval that touches a gap is absent
	GridProbe probe(0.5);
	ZEB::UnitVector x, y;
	EMTest::MessageRecorder rec;
	probe.calculate(t, rh, x, y);
	ASSERT_EQ(x.size(), 21u);
	EXPECT_EQ(x[0], 1.0);
	for (std::size_t k = 0; k < x.size(); ++k) {
		const bool absent = x[k] > 4 && x[k] < 7;
		EXPECT_EQ(std::isnan(y[k]), absent) << x[k];
		if (!absent) {
			EXPECT_DOUBLE_EQ(y[k], x[k]);
		}
	}
	std::vector<std::string> warnings;
	for (const EMTest::RecordedMessage & m : rec.m_messages)
		if (m.m_type == ZEB::MSG_WARNING)
			warnings.push_back(m.m_text);
	EXPECT_EQ(warnings, (std::vector<std::string>{
		"2 gaps in data set 1 'wall.csv: Temp' (missing values): the model skips the times they cover.",
		"1 gaps in data set 2 (missing values): the model skips the times they cover." }));

	// the mould index stands still through a gap and has no value there
	EM::TimeSeries warm = constantSeries(48, 25, "C");
	EM::TimeSeries wet = constantSeries(48, 97, "%");
	EM::ModelTwo2DViitanenMould mould;
	ZEB::UnitVector xFull, yFull;
	mould.calculate(warm, wet, xFull, yFull);
	for (std::size_t i = 10; i < 14; ++i)
		warm.m_values[i] = std::nan("");
	mould.calculate(warm, wet, x, y);
	ASSERT_EQ(y.size(), yFull.size());
	for (std::size_t i = 0; i < y.size(); ++i) {
		if (i < 10)
			EXPECT_EQ(y[i], yFull[i]);
		else if (i < 14)
			EXPECT_TRUE(std::isnan(y[i]));
		else // growth resumes where it stood: four hours behind the series without gap
			EXPECT_EQ(y[i], yFull[i-4]) << i;
	}
}


TEST(EMModelBase, EveryModelRecoversAfterAGap) {
	// ten wet, warm days with the fifth missing; models that average do so over a day
	std::vector<double> T(240, 24.0), RH(240, 98.0);
	for (std::size_t i = 96; i < 120; ++i)
		T[i] = std::nan("");
	const EM::TimeSeries t = EMTest::hourlySeries(T, "C");
	const EM::TimeSeries rh = EMTest::hourlySeries(RH, "%");
	for (const std::string & kw : EM::Factory::modelTypeKeywords()) {
		std::unique_ptr<EM::ModelTwo2DBase> model = EM::Factory::createModel(kw);
		for (const EM::ModelParameter & p : model->parameterDescriptions())
			if (std::string(p.m_key) == "TAH")
				model->setFromParameter("TAH 24");
		ZEB::UnitVector x, y;
		model->calculate(t, rh, x, y);
		ASSERT_FALSE(y.empty()) << kw;
		std::size_t present = 0;
		for (std::size_t i = 0; i < y.size(); ++i) {
			EXPECT_FALSE(std::isinf(y[i])) << kw;
			if (!std::isnan(y[i]) && !std::isnan(x[i]))
				++present;
		}
		// more than the days before the gap have a result: the gap did not end the calculation
		EXPECT_GT(present, kw == "WTAWoodDegradationModel" || kw == "AlgaeGrowModelBrick" ? 5u : 120u) << kw;
		EXPECT_FALSE(std::isnan(y.m_data.back()) || std::isnan(x.m_data.back())) << kw;
	}
}


TEST(EMModelBase, FactoryAndParameterTexts) {
	const std::vector<std::string> keywords = EM::Factory::modelTypeKeywords();
	ASSERT_EQ(keywords.size(), 6u);
	for (const std::string & kw : keywords) {
		std::unique_ptr<EM::ModelTwo2DBase> model = EM::Factory::createModel(kw);
		ASSERT_TRUE(model != nullptr) << kw;
		EXPECT_EQ(std::string(model->typeKeyword()), kw);
		// the parameter text reads back unchanged
		std::unique_ptr<EM::ModelTwo2DBase> other = EM::Factory::createModel(kw);
		other->setFromParameter(model->parameter());
		EXPECT_EQ(other->parameter(), model->parameter()) << kw;
		// the described keys are those of the text, with the fresh model's values; each range is
		// accepted up to its finite limits and refused beyond them
		std::map<std::string, double> written;
		std::istringstream pairs(model->parameter());
		for (std::string key, value; pairs >> key >> value; )
			written[key] = std::stod(value);
		const std::vector<EM::ModelParameter> descriptions = model->parameterDescriptions();
		EXPECT_EQ(descriptions.size(), written.size()) << kw;
		for (const EM::ModelParameter & d : descriptions) {
			ASSERT_EQ(written.count(d.m_key), 1u) << kw << " " << d.m_key;
			EXPECT_EQ(written[d.m_key], d.m_default) << kw << " " << d.m_key;
			const double beyond = d.m_integer ? 1 : 1e-3;
			const auto entry = [&d](double v) {
				return std::string(d.m_key) + " " + (d.m_integer ? std::to_string(std::lround(v)) : std::to_string(v));
			};
			for (const double limit : { d.m_minimum, d.m_maximum }) {
				if (!std::isfinite(limit))
					continue;
				const double outside = limit == d.m_minimum ? limit - beyond : limit + beyond;
				std::unique_ptr<EM::ModelTwo2DBase> probe = EM::Factory::createModel(kw);
				EXPECT_NO_THROW(probe->setFromParameter(entry(limit))) << kw << " " << d.m_key;
				EXPECT_THROW(probe->setFromParameter(entry(outside)), ZEB::Exception) << kw << " " << d.m_key;
			}
		}
		// an empty text changes nothing; an unknown key fails and changes nothing
		const std::string before = model->parameter();
		model->setFromParameter("  ");
		EXPECT_EQ(model->parameter(), before);
		try {
			model->setFromParameter("XY 1");
			ADD_FAILURE() << kw;
		}
		catch (ZEB::Exception & ex) {
			EXPECT_EQ(std::string(ex.what()), "Invalid parameter string, unknown key.");
		}
		EXPECT_EQ(model->parameter(), before);
	}
	EXPECT_EQ(EM::Factory::createModel("VTTMould"), nullptr);

	// the defaults, and a text in another order or spacing written back in the model's order
	const std::vector<std::array<const char *, 4> > texts = {
		{ "VTTMouldModel", "MC 1 SC 1 DC 4", "SC 2  MC 3\tDC 1", "MC 3 SC 2 DC 1" },
		{ "AlgaeGrowModelBrick", "PO 0.25 RV 2.95", "RV 4 PO 0.3", "PO 0.3 RV 4" },
		{ "IsoplethModel", "TSH 0 TSD -1 TED -1 TAH 0", "TSD 1.5 TED 1e-20", "TSH 0 TSD 1.5 TED 1e-20 TAH 0" },
		{ "VTTWoodDegradation", "AC 1 IA 0", "IA 1 AC 0", "AC 0 IA 1" } };
	for (const std::array<const char *, 4> & t : texts) {
		std::unique_ptr<EM::ModelTwo2DBase> model = EM::Factory::createModel(t[0]);
		EXPECT_EQ(model->parameter(), t[1]);
		model->setFromParameter(t[2]);
		EXPECT_EQ(model->parameter(), t[3]);
	}
	// faulty texts: the model's own message, and nothing changed, not even by the pairs before the fault
	const char * const uneven = "Invalid parameter string, eneven number of entries.";
	const char * const number = "Invalid parameter, expected floating point number.";
	const char * const mouldClass = "Invalid parameter, expected int number between 1 and 4.";
	const char * const flag = "Invalid parameter, expected int number of 0 or 1.";
	const std::vector<std::array<const char *, 4> > faults = {
		{ "VTTMouldModel", "ModelTwo2DViitanenMould", "MC 2 SC", uneven },
		{ "VTTMouldModel", "ModelTwo2DViitanenMould", "MC 2 SC 0", mouldClass },
		{ "VTTMouldModel", "ModelTwo2DViitanenMould", "MC 3 XY 2", "Invalid parameter string, unknown key." },
		{ "AlgaeGrowModelBrick", "ModelTwo2DGregoriniAlgaeBrick", "PO 0.1 RV x", number },
		{ "AlgaeGrowModelBrick", "ModelTwo2DGregoriniAlgaeBrick", "PO 1.5", "Invalid parameter, porosity must be between 0 and 1." },
		{ "AlgaeGrowModelBrick", "ModelTwo2DGregoriniAlgaeBrick", "RV -1", "Invalid parameter, roughness must not be negative." },
		{ "IsoplethModel", "ModelTwo2DIsopleth", "TSH 1 TSD", uneven },
		{ "VTTWoodDegradation", "ModelTwo2DViitanenWoodDegradation", "AC 0 IA yes", flag },
		{ "VTTWoodDegradation", "ModelTwo2DViitanenWoodDegradation", "AC 0 IA", "Invalid parameter string, uneven number of entries." },
		{ "WTAWoodDegradationModel", "ModelTwo2DWTAWoodDegradation", "TSD 2 TED x", number },
		{ "ParametricFunction", "ModelTwo2DParametricFunction", "TH", uneven } };
	for (const std::array<const char *, 4> & f : faults) {
		std::unique_ptr<EM::ModelTwo2DBase> model = EM::Factory::createModel(f[0]);
		const std::string before = model->parameter();
		expectError([&]() { model->setFromParameter(f[2]); }, f[3], std::string("[") + f[1] + "::setFromParameter]");
		EXPECT_EQ(model->parameter(), before) << f[0] << " " << f[2];
	}
}
