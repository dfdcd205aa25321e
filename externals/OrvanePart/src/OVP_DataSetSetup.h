#ifndef OVP_DataSetSetupH
#define OVP_DataSetSetupH

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <QStringList>

#include <EM_CutType.h>

#include "OVP_IsoplethLineSet.h"

namespace OVP {

/*! How one extractor entry of a mapper is set up: the files it reads, the cut, the manipulators
	and the model. Mapper::dataSetSetup() reads it from an entry, Mapper::setDataSetSetup()
	rebuilds the entry from it; the data-set page of a chart edits it.
*/
struct DataSetSetup {
	/*! Pairs of (keyword, value text) in order: manipulators as (type keyword, parameter), model
		parameters as (key, value). The type of Mapper::ManipulatorList.
	*/
	typedef std::vector<std::pair<std::string, std::string> > KeywordList;

	/*! The files read: one, or two (temperature and relative humidity) for a model. */
	QStringList									m_fileNames;
	/*! Column number of a reference output, as the header lists it; unused otherwise. Of a
		model: the column of the first file.
	*/
	std::uint32_t								m_column = 0;
	/*! Of a model: the column of the second file when it is a reference output. */
	std::uint32_t								m_column2 = 0;
	/*! The cut type; EM::CT_NoCut for time series and models. */
	EM::CutType									m_cutType = EM::CT_NoCut;
	/*! Selected index of each dimension (EM::CutDimension) the cut type fixes; the others and,
		while the time cut follows the last time point, the time index are not used.
	*/
	std::array<unsigned int, EM::NUM_CD>		m_cutIndices = {};
	/*! The time cut follows the last time point instead of staying at a time index. */
	bool										m_followLastTimePoint = true;
	/*! The manipulators in the order they are applied. */
	KeywordList									m_manipulators;
	/*! Type keyword of the model combining two files ("VTTMouldModel", ...); empty without. */
	std::string									m_modelType;
	/*! The model parameters as (key, value text); keys not listed keep their defaults. */
	KeywordList									m_modelParameters;
	/*! Of the isopleth model: the lines it evaluates; the default set for the model's own lines. */
	IsoplethLineSet								m_isoplethLines;

	/*! Equal when the setups give the same data: indices that are not used do not count. */
	bool operator==(const DataSetSetup & other) const;
	bool operator!=(const DataSetSetup & other) const { return !(*this == other); }

	/*! True when the cut type fixes the dimension and its index is used (the time index only
		while it does not follow the last time point).
	*/
	bool usesIndex(unsigned int dimension) const;
};

} // namespace OVP

#endif // OVP_DataSetSetupH
