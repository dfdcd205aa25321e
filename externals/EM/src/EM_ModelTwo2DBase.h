#ifndef EM_ModelTwo2DBaseH
#define EM_ModelTwo2DBaseH

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <ZEB_Unit.h>
#include <ZEB_UnitVector.h>

#include "EM_ModelParameter.h"
#include "EM_ModelPeriod.h"
#include "EM_TimeSeries.h"

namespace DATAIO {
class DataIO;
}

namespace ZEB {
class UnitVector;
}

namespace EM {

/*! Base of the models that turn a temperature series and a relative-humidity series of one
	location into one derived damage series (mould index, wood decay, algae coverage, ...).

	The base validates the two inputs, brings them to the model's units (temperature first in
	the temperature unit, humidity second in the humidity unit, swapped when given the other way
	round) and resamples both onto one common equidistant time grid (unifiedData()). A derived
	model implements compute() on the resampled values.

	calculate() exists in two forms: one reads the series from two output containers (the form
	the two-container extractor uses), the other takes plain series. Both leave the result
	series untouched when they fail.
*/
class ModelTwo2DBase {
public:
	/*! The model's units: temperature "C", relative humidity "%", and the given time unit, in
		which the result's time axis and the grid step are expressed.
	*/
	explicit ModelTwo2DBase(const std::string & timeUnit);
	virtual ~ModelTwo2DBase();
	ModelTwo2DBase(const ModelTwo2DBase &) = delete;
	ModelTwo2DBase & operator=(const ModelTwo2DBase &) = delete;

	/*! The keyword under which the model kind is stored and re-created, e.g. "VTTMouldModel". */
	virtual const char * typeKeyword() const = 0;
	/*! The model's title, which the default series title is built from. */
	virtual const char * title() const = 0;
	/*! Name of the expected input 0 ("Temperature") or 1 ("Relative humidity"). */
	virtual std::string inputName(unsigned int index) const;
	/*! Label of the result values, e.g. "Mould index". */
	virtual std::string valueLabel() const = 0;
	/*! Unit of the result values. */
	virtual ZEB::Unit valueUnit() const = 0;

	/*! The parameters as blank-separated key/value pairs, as setFromParameter() reads them. */
	virtual std::string parameter() const = 0;
	/*! Sets the parameters from blank-separated key/value pairs. Throws on any fault and then
		keeps all previous parameters.
	*/
	virtual void setFromParameter(const std::string & text) = 0;
	/*! Every key of the parameter text with its meaning, default and accepted range, in the
		order parameter() writes them.
	*/
	virtual std::vector<ModelParameter> parameterDescriptions() const = 0;

	/*! Column number that selects the one value per time point of a container instead of a
		column of a reference collection.
	*/
	static constexpr std::uint32_t SINGLE_VALUE = 0xFFFFFFFFu;

	/*! Reads the two input series from two output containers (each a single-value time series,
		or a column of a reference collection given by its number, see seriesFromDataIO()) and
		calculates the result. Loading values changes a container, hence the non-const pointers.
	*/
	void calculate(DATAIO::DataIO * first, std::uint32_t firstColumn, DATAIO::DataIO * second,
				   std::uint32_t secondColumn, ZEB::UnitVector & x, ZEB::UnitVector & y);

	/*! Calculates the result series (x: time points or, for a parametric function, the first
		input's values; y: the result values) from two plain series. An empty common time grid
		gives empty x and y and no error. Absent input values (NaN) are skipped: each input with
		gaps is reported once as a warning with their count, and result points whose inputs
		are absent are absent themselves (see unifiedData() and each model).
	*/
	void calculate(const TimeSeries & first, const TimeSeries & second, ZEB::UnitVector & x, ZEB::UnitVector & y);

	/*! The series of one output container, validated as input number index (1 or 2) with the
		messages of unifiedData(). With column SINGLE_VALUE the container must hold one value
		per time point; otherwise it must be a reference collection with a column of this number
		(as its header lists it), whose values and own unit are taken. An unknown unit name gives
		an undefined unit; gaps stay NaN.
	*/
	static TimeSeries seriesFromDataIO(DATAIO::DataIO & dataIO, unsigned int index, std::uint32_t column = SINGLE_VALUE);

	const ZEB::Unit & temperatureUnit() const { return m_temperatureUnit; }
	const ZEB::Unit & humidityUnit() const { return m_humidityUnit; }
	const ZEB::Unit & timeUnit() const { return m_timeUnit; }

protected:
	/*! The model's calculation on two plain series; writes into x and y, which are empty. */
	virtual void compute(const TimeSeries & first, const TimeSeries & second,
						 ZEB::UnitVector & x, ZEB::UnitVector & y) = 0;

	/*! Aligns the units of both inputs and resamples them onto the common grid with the given
		step (in model time units): grid points, temperatures in the temperature unit and
		relative humidities in the humidity unit (a humidity without unit, "-", is a fraction).
		The grid runs from the later of the two first present values to at most the earlier of
		the two last ones; inputs that do not overlap give an empty grid. A grid point in an
		interval next to an absent input value is absent (NaN): gaps are not bridged.
	*/
	void unifiedData(const TimeSeries & first, const TimeSeries & second, std::vector<double> & grid,
					 std::vector<double> & temperature, std::vector<double> & humidity, double step) const;

	/*! The start of compute() for models with one result value per point of the common grid:
		resamples the inputs onto the grid with the given step (unifiedData()), makes the grid
		the result's x values and gives x the time unit and y the value unit. Returns false for
		an empty grid.
	*/
	bool gridResult(const TimeSeries & first, const TimeSeries & second, double step, ZEB::UnitVector & x,
					ZEB::UnitVector & y, std::vector<double> & temperature, std::vector<double> & humidity) const;

	/*! The message raised when the value units of the inputs are not one temperature and one
		relative humidity.
	*/
	virtual std::string inputUnitsMessage(const TimeSeries & first, const TimeSeries & second) const;

	/*! Splits a parameter text at white space into key/value pairs; an odd number of pieces
		raises unevenMessage with the given function id.
	*/
	static std::vector<std::pair<std::string, std::string> > parameterPairs(const std::string & text,
		const char * unevenMessage, const char * functionId);
	/*! Reads a finite floating-point parameter; throws "Invalid parameter, expected floating
		point number." with the given function id otherwise.
	*/
	static double parameterNumber(const std::string & value, const char * functionId);
	/*! Reads a whole-number parameter from minimum to maximum; throws rangeMessage with the given
		function id otherwise.
	*/
	static int parameterInteger(const std::string & value, int minimum, int maximum, const char * rangeMessage,
								const char * functionId);
	/*! A number in general format with 12 significant digits, for parameter texts. */
	static std::string numberText(double value);

	/*! A number parameter: its key and the number it sets. */
	typedef std::pair<const char *, double *> NumberParameter;
	/*! Sets the numbers of a parameter text (key/value pairs) by their keys. Throws, with the
		given function id, "Invalid parameter string, eneven number of entries." for an odd number
		of pieces, "Invalid parameter string, unknown key." for a key that is not among them, and
		as parameterNumber() for a bad number; numbers read before a fault keep their new values,
		so the models read into copies.
	*/
	static void readNumberParameters(const std::string & text, const std::vector<NumberParameter> & parameters,
									 const char * functionId);
	/*! The number parameters of a period: TSH, TSD and TED. */
	static std::vector<NumberParameter> periodParameters(ModelPeriod & period);
	/*! Descriptions of the period parameters TSH, TSD and TED. */
	static std::vector<ModelParameter> periodParameterDescriptions();
	/*! Description of the averaging window TAH (see trailingMean()). */
	static ModelParameter averagingParameterDescription();
	/*! The period parameters as text, "TSH <shift> TSD <first day> TED <last day>". */
	static std::string periodParameterText(const ModelPeriod & period);
	/*! Replaces each value by the mean of the last window values up to and including it (fewer
		at the start of the series); a mean over a window with an absent value (NaN) is absent.
		A window of 1 or less leaves the values unchanged.
	*/
	static void trailingMean(std::vector<double> & values, double window);

private:
	ZEB::Unit	m_temperatureUnit;
	ZEB::Unit	m_humidityUnit;
	ZEB::Unit	m_timeUnit;
	/*! Buffers of a calculation, kept so that the next one (a refresh, another parameter) reuses
		their memory: inputs converted to model units (times of both, temperatures, humidities)
		and the result series that the caller's previous result is swapped into.
	*/
	mutable ZEB::UnitVector	m_converted[4];
	ZEB::UnitVector			m_spareX;
	ZEB::UnitVector			m_spareY;
};

} // namespace EM

#endif // EM_ModelTwo2DBaseH
