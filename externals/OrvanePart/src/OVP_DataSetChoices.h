#ifndef OVP_DataSetChoicesH
#define OVP_DataSetChoicesH

#include <memory>
#include <vector>

#include <EM_CutType.h>

#include "OVP_CutOptions.h"

namespace OVP {

class Mapper;

/*! The cut choices that the data-set page of a chart offers for one extractor entry: the cut
	types that give the chart's kind of series from the entry's file and, for a field or flux
	file, the coordinates of every dimension a cut can fix with their unit and name (as the data
	manager's cut options list them). Manipulators are offered as ManipulatorOptions lists them,
	models and their parameters (key, default, range) as ModelOptions does. The choices are
	taken when asked for; after the file changed they are asked for again.
*/
class DataSetChoices {
public:
	/*! The choices for the entry of a mapper at index (as Mapper::dataSetSetup() counts).
		Throws ZEB::Exception for a bad index and when the grid of the file cannot be built.
	*/
	DataSetChoices(const Mapper & mapper, unsigned int index);

	/*! The cut types the entry can switch to, in the order of the enumeration; only "NoCut"
		for time series and models.
	*/
	const std::vector<EM::CutType> & cutTypes() const { return m_cutTypes; }
	/*! The coordinates (CutOptions::coordinates(), unit(), dimensionName()) of the entry's field
		or flux file; null for time series and models.
	*/
	const CutOptions * cut() const { return m_cut.get(); }

private:
	std::vector<EM::CutType>		m_cutTypes;
	std::unique_ptr<CutOptions>		m_cut;
};

} // namespace OVP

#endif // OVP_DataSetChoicesH
