#ifndef DATAIOFUZZ_ChartModelsH
#define DATAIOFUZZ_ChartModelsH

#include <functional>

namespace SCI {
class AbstractChartModel;
}

namespace DATAIOFUZZ {

/*! Runs a chart reader on fresh models of every chart kind that has an XML form of its own: a
	line chart with three series (so that series records have series to go to), a colour grid
	and a vector field chart. A model that reads is written with the write-all flag and read
	back into another fresh model of its kind, which must agree with it in every property the
	XML holds (XMLChecks::checkSameChart).
*/
class ChartModels {
public:
	/*! Reads the input into a model; throws ZEB::Exception when it is refused. */
	typedef std::function<void(SCI::AbstractChartModel & model)> Reader;
	/*! Writes from (with all properties) and reads that into to. */
	typedef std::function<void(SCI::AbstractChartModel & from, SCI::AbstractChartModel & to)> Copier;

	/*! read for every kind; copy for every model that read. A refusal must be a proper error
		chain, a failing copy aborts.
	*/
	static void readAndCopy(const Reader & read, const Copier & copy);
};

} // namespace DATAIOFUZZ

#endif // DATAIOFUZZ_ChartModelsH
