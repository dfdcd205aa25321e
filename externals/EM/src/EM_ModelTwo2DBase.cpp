#include "EM_ModelTwo2DBase.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

#include <DATAIO_DataIO.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>
#include <ZEB_StringUtils.h>
#include <ZEB_UnitList.h>
#include <ZEB_UnitVector.h>

namespace EM {

namespace {

/*! Every fault of the inputs is reported under the origin of the resampling step, also when it
	is found while the series are read from their containers: one origin for all input faults.
*/
const char * const UNIFIED_DATA_ID = "[ModelTwo2DBase::unifiedData]";

/*! Largest common grid; more points than a thousand years of hourly values mean that the time
	points or the time unit of an input are broken, and would only exhaust the memory.
*/
const double MAX_GRID_POINTS = 1e7;

/*! The unit of the given name, or the undefined unit when the name is unknown. */
ZEB::Unit unitOrUndefined(const std::string & name) {
	const ZEB::UnitData * data = ZEB::UnitList::instance().retrieve(name);
	return data == nullptr ? ZEB::Unit() : ZEB::Unit(data->id());
}

/*! The values in unit target: the values themselves when they are in that unit already (no
	copy of long series), else a converted copy held in buffer. Throws when the units cannot be
	related.
*/
const std::vector<double> & converted(const std::vector<double> & values, const ZEB::Unit & src,
									  const ZEB::Unit & target, ZEB::UnitVector & buffer)
{
	if (src == target)
		return values;
	buffer.m_data = values;
	buffer.m_unit = src;
	buffer.convert(target);
	return buffer.m_data;
}

/*! Values of the table (x, y) at the n grid points start + k*step, k = 0 .. n-1.
	The same interpolation as LinearSpline::value() (held constant outside the table, exact at
	the knots), but y may hold gaps (NaN): a grid point between two knots of which one is a gap
	is a gap itself, so that a gap reaches no further than the intervals it touches. The grid
	increases, so the interval is found by walking forward through the
	knots instead of a search per point: resampling years of hourly data costs a pass over both.
	A grid point that meets a knot up to rounding takes the knot's value exactly: start + k*step
	and a converted input time differ in the last bits for many points (hours given in days are
	not exact binary fractions), and interpolating there would hand a model 19.999999999999996
	for a recorded 20, right at the thresholds where its formulas jump.
*/
void resampleOnGrid(const std::vector<double> & x, const std::vector<double> & y, double start, double step, std::size_t n,
					std::vector<double> & values)
{
	const std::size_t last = x.size() - 1;
	values.resize(n);
	std::size_t i = 0;
	for (std::size_t k = 0; k < n; ++k) {
		const double g = start + static_cast<double>(k) * step;
		if (g <= x.front()) {
			values[k] = y.front();
			continue;
		}
		if (g >= x[last]) {
			values[k] = y[last];
			continue;
		}
		while (g >= x[i+1])
			++i;
		// rounding of the grid and of the converted input times stays within a few units in the
		// last place of the larger of g and step; nothing recorded is that close to a knot
		const double tolerance = 64 * std::numeric_limits<double>::epsilon() * (std::fabs(g) + step);
		if (g - x[i] <= tolerance) {
			values[k] = y[i];
			continue;
		}
		if (x[i+1] - g <= tolerance) {
			values[k] = y[i+1];
			continue;
		}
		const double t = (g - x[i]) / (x[i+1] - x[i]);
		const double dy = y[i+1] - y[i];
		// the difference of two huge values of opposite sign can overflow; the weighted form cannot
		values[k] = std::isfinite(dy) ? y[i] + t * dy : (1 - t) * y[i] + t * y[i+1];
	}
}

/*! The time span of a model input from its first to its last present value. */
struct PresentRange {
	bool	m_empty = true;
	double	m_first = 0;
	double	m_last = 0;
};

/*! Checks a model input in model units: finite, strictly increasing time points and values that
	are finite or gaps (NaN); returns the span of its present values. A fault raises "Invalid time
	points or values in data set %1." (number: the input's place in the caller's order) with the
	fault as cause.
*/
PresentRange presentRange(const std::vector<double> & time, const std::vector<double> & values, unsigned int number) {
	// the common case, sound input, checked in one pass without branches; the span of the present
	// values is then found from both ends
	const std::size_t n = std::min(time.size(), values.size());
	bool sound = true;
	double previous = -std::numeric_limits<double>::infinity();
	for (std::size_t i = 0; i < n; ++i) {
		sound &= std::isfinite(time[i]) & (time[i] > previous) & !std::isinf(values[i]);
		previous = time[i];
	}
	PresentRange range;
	if (sound) {
		std::size_t first = 0;
		while (first < n && std::isnan(values[first]))
			++first;
		if (first == n)
			return range;
		std::size_t last = n - 1;
		while (std::isnan(values[last]))
			--last;
		range.m_first = time[first];
		range.m_last = time[last];
		range.m_empty = false;
		return range;
	}
	std::string fault;
	for (std::size_t i = 0; i < time.size() && fault.empty(); ++i) {
		if (!std::isfinite(time[i]))
			fault = ZEB::MessageFormat("Time point #%1 is not a finite number.").arg(static_cast<unsigned long>(i)).str();
		else if (i > 0 && !(time[i] > time[i-1]))
			fault = ZEB::MessageFormat("Time point %1 follows %2, time points must increase.").arg(time[i]).arg(time[i-1]).str();
		else if (std::isinf(values[i]))
			fault = ZEB::MessageFormat("Value at time %1 is infinite.").arg(time[i]).str();
		else if (!std::isnan(values[i])) {
			if (range.m_empty)
				range.m_first = time[i];
			range.m_last = time[i];
			range.m_empty = false;
		}
	}
	if (!fault.empty())
		throw ZEB::Exception(ZEB::Exception(fault, UNIFIED_DATA_ID),
							 ZEB::MessageFormat("Invalid time points or values in data set %1.").arg(number), UNIFIED_DATA_ID);
	return range;
}

/*! A relative humidity without unit ("-") is read as a fraction; a value above 1 shows that it is
	not one, and the model refuses to guess.
*/
void checkFraction(const std::vector<double> & values, unsigned int number) {
	for (double v : values)
		if (v > 1)
			throw ZEB::Exception(ZEB::MessageFormat("Relative humidity of data set %1 has no unit ('-') and is read as a "
				"fraction from 0 to 1, but it holds the value %2.").arg(number).arg(v), UNIFIED_DATA_ID);
}

} // namespace


ModelTwo2DBase::ModelTwo2DBase(const std::string & timeUnit) :
	m_temperatureUnit("C"),
	m_humidityUnit("%"),
	m_timeUnit(timeUnit)
{
}


ModelTwo2DBase::~ModelTwo2DBase() = default;


std::string ModelTwo2DBase::inputName(unsigned int index) const {
	return index == 0 ? "Temperature" : "Relative humidity";
}


void ModelTwo2DBase::calculate(DATAIO::DataIO * first, std::uint32_t firstColumn, DATAIO::DataIO * second,
							   std::uint32_t secondColumn, ZEB::UnitVector & x, ZEB::UnitVector & y)
{
	if (first == nullptr || second == nullptr)
		throw ZEB::Exception("At least one dataio object not valid", UNIFIED_DATA_ID);
	TimeSeries s1 = seriesFromDataIO(*first, 1, firstColumn);
	TimeSeries s2 = seriesFromDataIO(*second, 2, secondColumn);
	calculate(s1, s2, x, y);
}


void ModelTwo2DBase::calculate(const TimeSeries & first, const TimeSeries & second, ZEB::UnitVector & x, ZEB::UnitVector & y) {
	FUNCID(ModelTwo2DBase::calculate);
	// compute into spare series, so that a failure leaves the caller's result as it was
	ZEB::UnitVector & resultX = m_spareX;
	ZEB::UnitVector & resultY = m_spareY;
	resultX.m_data.clear();
	resultY.m_data.clear();
	resultX.m_unit = resultY.m_unit = ZEB::Unit();
	compute(first, second, resultX, resultY);
	std::swap(x, resultX);
	std::swap(y, resultY);
	unsigned int number = 1;
	for (const TimeSeries * s : { &first, &second }) {
		const std::size_t gaps = static_cast<std::size_t>(std::count_if(s->m_values.begin(), s->m_values.end(),
			[](double v) { return std::isnan(v); }));
		if (gaps > 0) {
			const std::string dataSet = s->m_name.empty() ? std::to_string(number) : std::to_string(number) + " '" + s->m_name + "'";
			ZEB::reportWarning(ZEB::MessageFormat("%1 gaps in data set %2 (missing values): the model skips the times they "
				"cover.").arg(static_cast<unsigned long>(gaps)).arg(dataSet).str(), FUNC_ID);
		}
		++number;
	}
}


TimeSeries ModelTwo2DBase::seriesFromDataIO(DATAIO::DataIO & dataIO, unsigned int index, std::uint32_t column) {
	FUNCID(ModelTwo2DBase::seriesFromDataIO);
	if (dataIO.dataFormat() != DATAIO::DataIO::DF_2D)
		throw ZEB::Exception(ZEB::MessageFormat("Data set %1 is not 2D").arg(index), UNIFIED_DATA_ID);
	std::size_t position = 0;
	if (column == SINGLE_VALUE) {
		if (dataIO.nValues() != 1)
			throw ZEB::Exception(ZEB::MessageFormat("Data set %1 is not a single-value 2D").arg(index), UNIFIED_DATA_ID);
	}
	else {
		const std::vector<std::uint32_t> & nums = dataIO.nums();
		position = static_cast<std::size_t>(std::find(nums.begin(), nums.end(), column) - nums.begin());
		if (dataIO.type() != DATAIO::DataIO::T_REFERENCE || position >= dataIO.nValues())
			throw ZEB::Exception(ZEB::MessageFormat("Data set %1 has no column %2.").arg(index).arg(column), UNIFIED_DATA_ID);
	}

	TimeSeries series;
	series.m_timeUnit = unitOrUndefined(dataIO.timeUnit());
	series.m_valueUnit = unitOrUndefined(dataIO.columnUnit(position));
	series.m_name = dataIO.filename();
	if (column != SINGLE_VALUE)
		series.m_name += ": " + dataIO.columnQuantity(position);
	if (dataIO.timePoints().empty())
		return series;
	try {
		const double * values = dataIO.dataVector();
		const std::size_t stride = dataIO.nValues();
		series.m_time = dataIO.timePoints();
		series.m_values.resize(series.m_time.size());
		for (std::size_t t = 0; t < series.m_time.size(); ++t)
			series.m_values[t] = values[t*stride + position];
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Error reading values of data set %1.").arg(index), FUNC_ID);
	}
	return series;
}


void ModelTwo2DBase::unifiedData(const TimeSeries & first, const TimeSeries & second, std::vector<double> & grid,
								 std::vector<double> & temperature, std::vector<double> & humidity, double step) const
{
	const char * const FUNC_ID = UNIFIED_DATA_ID;
	const ZEB::Unit seconds("s");
	if (first.m_timeUnit.base_id() != seconds.base_id())
		throw ZEB::Exception("x value unit of data set 1 is not time", FUNC_ID);
	if (second.m_timeUnit.base_id() != seconds.base_id())
		throw ZEB::Exception("x value unit of data set 2 is not time", FUNC_ID);
	if (first.m_time.size() != first.m_values.size() || second.m_time.size() != second.m_values.size())
		throw ZEB::Exception("Size mismatch between time points and values of a data set.", FUNC_ID);

	// temperature first: swap when the first input is not of the kind of the temperature unit
	const bool swapped = first.m_valueUnit.base_id() != m_temperatureUnit.base_id();
	const TimeSeries & t = swapped ? second : first;
	const TimeSeries & rh = swapped ? first : second;
	ZEB::UnitVector & timeT = m_converted[0];
	ZEB::UnitVector & timeRH = m_converted[1];
	ZEB::UnitVector & valuesT = m_converted[2];
	ZEB::UnitVector & valuesRH = m_converted[3];
	const std::vector<double> * tTime = nullptr;
	const std::vector<double> * rhTime = nullptr;
	try {
		tTime = &converted(t.m_time, t.m_timeUnit, m_timeUnit, timeT);
		rhTime = &converted(rh.m_time, rh.m_timeUnit, m_timeUnit, timeRH);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, "Error in time unit of data sets", FUNC_ID);
	}
	const std::vector<double> * tValues = nullptr;
	const std::vector<double> * rhValues = nullptr;
	try {
		tValues = &converted(t.m_values, t.m_valueUnit, m_temperatureUnit, valuesT);
		// a humidity without unit is a fraction
		const ZEB::Unit rhUnit = rh.m_valueUnit == ZEB::Unit("-") ? ZEB::Unit("---") : rh.m_valueUnit;
		rhValues = &converted(rh.m_values, rhUnit, m_humidityUnit, valuesRH);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, inputUnitsMessage(first, second), FUNC_ID);
	}

	grid.clear();
	temperature.clear();
	humidity.clear();
	if (tTime->empty() || rhTime->empty())
		return;

	// the data set numbers in messages are those of the caller's order
	const unsigned int numberT = swapped ? 2 : 1;
	const PresentRange rangeT = presentRange(*tTime, *tValues, numberT);
	const PresentRange rangeRH = presentRange(*rhTime, *rhValues, 3 - numberT);
	if (rangeT.m_empty || rangeRH.m_empty)
		return;
	if (rh.m_valueUnit == ZEB::Unit("-"))
		checkFraction(rh.m_values, 3 - numberT);

	const double start = std::max(rangeT.m_first, rangeRH.m_first);
	const double end = std::min(rangeT.m_last, rangeRH.m_last);
	if (!(end >= start))
		return;
	if (!(step > 0))
		throw ZEB::Exception(ZEB::MessageFormat("Invalid grid step %1.").arg(step), FUNC_ID);
	const double intervals = (end - start) / step;
	if (!(intervals < MAX_GRID_POINTS))
		throw ZEB::Exception(ZEB::MessageFormat("Common time grid from %1 to %2 with step %3 has too many points.")
							 .arg(start).arg(end).arg(step), FUNC_ID);
	// truncation toward zero drops a last partial step
	const std::size_t n = static_cast<std::size_t>(intervals) + 1;
	grid.resize(n);
	for (std::size_t k = 0; k < n; ++k)
		grid[k] = start + static_cast<double>(k) * step;
	resampleOnGrid(*tTime, *tValues, start, step, n, temperature);
	resampleOnGrid(*rhTime, *rhValues, start, step, n, humidity);
}


bool ModelTwo2DBase::gridResult(const TimeSeries & first, const TimeSeries & second, double step, ZEB::UnitVector & x,
								ZEB::UnitVector & y, std::vector<double> & temperature, std::vector<double> & humidity) const
{
	unifiedData(first, second, x.m_data, temperature, humidity, step);
	x.m_unit = timeUnit();
	y.m_unit = valueUnit();
	return !x.m_data.empty();
}


std::string ModelTwo2DBase::inputUnitsMessage(const TimeSeries & first, const TimeSeries & second) const {
	return ZEB::MessageFormat("Expected a temperature and a relative humidity, but the value units of the data sets are '%1' and '%2'.")
			.arg(first.m_valueUnit.name()).arg(second.m_valueUnit.name()).str();
}


std::vector<std::pair<std::string, std::string> > ModelTwo2DBase::parameterPairs(const std::string & text,
	const char * unevenMessage, const char * functionId)
{
	std::vector<std::string> pieces;
	const char * ws = " \t\r\n";
	std::size_t pos = text.find_first_not_of(ws);
	while (pos != std::string::npos) {
		std::size_t end = text.find_first_of(ws, pos);
		pieces.push_back(text.substr(pos, end == std::string::npos ? std::string::npos : end - pos));
		pos = (end == std::string::npos) ? end : text.find_first_not_of(ws, end);
	}
	if (pieces.size() % 2 != 0)
		throw ZEB::Exception(unevenMessage, functionId);
	std::vector<std::pair<std::string, std::string> > pairs;
	for (std::size_t i = 0; i < pieces.size(); i += 2)
		pairs.emplace_back(pieces[i], pieces[i+1]);
	return pairs;
}


double ModelTwo2DBase::parameterNumber(const std::string & value, const char * functionId) {
	double number = 0;
	try {
		number = ZEB::string2val<double>(value);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, "Invalid parameter, expected floating point number.", functionId);
	}
	if (!std::isfinite(number))
		throw ZEB::Exception("Invalid parameter, expected floating point number.", functionId);
	return number;
}


int ModelTwo2DBase::parameterInteger(const std::string & value, int minimum, int maximum, const char * rangeMessage,
									 const char * functionId)
{
	int number = 0;
	try {
		number = ZEB::string2val<int>(value);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, rangeMessage, functionId);
	}
	if (number < minimum || number > maximum)
		throw ZEB::Exception(rangeMessage, functionId);
	return number;
}


std::string ModelTwo2DBase::numberText(double value) {
	char buf[40];
	std::snprintf(buf, sizeof(buf), "%.12g", value);
	return buf;
}


void ModelTwo2DBase::readNumberParameters(const std::string & text, const std::vector<NumberParameter> & parameters,
										  const char * functionId)
{
	for (const auto & kv : parameterPairs(text, "Invalid parameter string, eneven number of entries.", functionId)) {
		double * target = nullptr;
		for (const NumberParameter & p : parameters)
			if (kv.first == p.first)
				target = p.second;
		if (target == nullptr)
			throw ZEB::Exception("Invalid parameter string, unknown key.", functionId);
		*target = parameterNumber(kv.second, functionId);
	}
}


std::vector<ModelTwo2DBase::NumberParameter> ModelTwo2DBase::periodParameters(ModelPeriod & period) {
	return { { "TSH", &period.m_timeShiftHours }, { "TSD", &period.m_startDay }, { "TED", &period.m_endDay } };
}


std::vector<ModelParameter> ModelTwo2DBase::periodParameterDescriptions() {
	const ModelPeriod defaults;
	const double U = ModelParameter::UNBOUNDED;
	return {
		{ "TSH", "Time shift [h]", false, defaults.m_timeShiftHours, -U, U },
		{ "TSD", "First day of the period [d], negative: open", false, defaults.m_startDay, -U, U },
		{ "TED", "Last day of the period [d], negative: open", false, defaults.m_endDay, -U, U }
	};
}


ModelParameter ModelTwo2DBase::averagingParameterDescription() {
	return { "TAH", "Averaging window [h], 1 or less: none", false, 0, -ModelParameter::UNBOUNDED,
			 ModelParameter::UNBOUNDED };
}


std::string ModelTwo2DBase::periodParameterText(const ModelPeriod & period) {
	return "TSH " + numberText(period.m_timeShiftHours) + " TSD " + numberText(period.m_startDay)
			+ " TED " + numberText(period.m_endDay);
}


void ModelTwo2DBase::trailingMean(std::vector<double> & values, double window) {
	if (!(window > 1) || values.size() < 2)
		return;
	const std::size_t w = window >= static_cast<double>(values.size())
			? values.size() : static_cast<std::size_t>(std::lround(window));
	std::vector<double> mean(values.size());
	// the sum runs over the present values; the window's gaps are counted instead
	double sum = 0;
	std::size_t gaps = 0;
	for (std::size_t i = 0; i < values.size(); ++i) {
		if (std::isnan(values[i]))
			++gaps;
		else
			sum += values[i];
		if (i >= w) {
			if (std::isnan(values[i - w]))
				--gaps;
			else
				sum -= values[i - w];
		}
		mean[i] = gaps > 0 ? std::numeric_limits<double>::quiet_NaN() : sum / static_cast<double>(std::min(i + 1, w));
	}
	values.swap(mean);
}

} // namespace EM
