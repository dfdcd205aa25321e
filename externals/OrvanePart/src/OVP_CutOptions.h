#ifndef OVP_CutOptionsH
#define OVP_CutOptionsH

#include <array>
#include <vector>

#include <QString>

#include <EM_CutType.h>

#include "OVP_Mapper.h"

namespace DATAIO {
class DataIO;
class GeoFile;
}

namespace OVP {

/*! The cut of one field or flux output file for a new chart: the cut types that the extractor
	factory has an extractor for, the chosen one, and for each dimension it fixes the selected
	index with the coordinates to choose from (time points in the file's time unit, cell centres
	of a space dimension in metres). The time cut may follow the last time point instead of a
	fixed index, so that the chart keeps showing the newest results of a running simulation.
*/
class CutOptions {
public:
	/*! The cut options of a container of format DF_3D, DF_4D or DF_5D with its geometry (null:
		the geometry embedded in the container). The first cut type offered is chosen, space
		indices are 0 and the time cut follows the last time point. Throws ZEB::Exception when
		the factory offers no cut type or the grid of the values cannot be built.
	*/
	CutOptions(const DATAIO::DataIO & dataIO, const DATAIO::GeoFile * geometry);

	/*! The cut types offered, in the order of the enumeration. */
	const std::vector<EM::CutType> & cutTypes() const { return m_cutTypes; }
	EM::CutType cutType() const { return m_cutType; }
	/*! Chooses one of cutTypes(); throws ZEB::Exception for another one. The selected indices
		of all dimensions are kept.
	*/
	void setCutType(EM::CutType cutType);

	/*! The dimensions (EM::CutDimension) the chosen cut type fixes, space before time. */
	std::vector<unsigned int> cutDimensions() const;
	/*! The coordinates of a dimension, ascending. */
	const std::vector<double> & coordinates(unsigned int dimension) const { return m_coordinates[dimension]; }
	/*! The unit name of a dimension's coordinates: the file's time unit, or "m". */
	QString unit(unsigned int dimension) const;
	/*! The name of a dimension: "Time", or the geometric direction "x", "y" or "z". */
	const QString & dimensionName(unsigned int dimension) const { return m_names[dimension]; }

	/*! The selected index of a dimension; for a time cut that follows the last time point, the
		current last index.
	*/
	unsigned int index(unsigned int dimension) const;
	/*! Selects the index of a dimension; a time index ends following the last time point.
		Throws ZEB::Exception for an index outside the coordinates.
	*/
	void setIndex(unsigned int dimension, unsigned int index);
	bool followLastTimePoint() const { return m_followLastTimePoint; }
	/*! Follows the last time point, or stays at the time point shown now. */
	void setFollowLastTimePoint(bool follow);

	/*! Sets cut type and cut indices of the data set of this file. */
	void apply(Mapper::DataSet & dataSet) const;

private:
	std::vector<EM::CutType>						m_cutTypes;
	EM::CutType										m_cutType = EM::CT_NoCut;
	std::array<std::vector<double>, EM::NUM_CD>		m_coordinates;
	std::array<QString, EM::NUM_CD>					m_names;
	std::array<unsigned int, EM::NUM_CD>			m_indices = {};
	QString											m_timeUnit;
	bool											m_followLastTimePoint = true;
};

} // namespace OVP

#endif // OVP_CutOptionsH
