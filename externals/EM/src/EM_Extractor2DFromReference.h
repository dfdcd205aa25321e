#ifndef EM_Extractor2DFromReferenceH
#define EM_Extractor2DFromReferenceH

#include <cstdint>

#include "EM_Extractor2DOutputBase.h"

namespace EM {

/*! Extracts the time series of one column of a container with several values per time point
	(a reference output). The column is given by its number as the container's header lists it
	(nums()), not by its position.
*/
class Extractor2DFromReference : public Extractor2DOutputBase {
public:
	Extractor2DFromReference(DATAIO::DataIO * dataIO, std::uint32_t column);

	/*! The common checks, then the data format 2D, a time unit as target x unit and the column
		("Given column is not in DataIO container.").
	*/
	bool canUpdate() override;

	std::uint32_t column() const { return m_column; }
	/*! The name of the column's data set: the quantity a data file reader gave the column, else
		the name the container's quantity gives it (DATAIO::DataIO::referenceDataSetNames());
		empty when there is none.
	*/
	std::string dataSetName() const;
	/*! The column's own unit (DATAIO::DataIO::columnUnit()); the container's value unit for a
		column it does not have.
	*/
	std::string valueUnitName(std::size_t input) const override;

protected:
	void doUpdate() override;
	/*! The y data is named after the column's data set, when the container names it. */
	std::string dataName(OutputDataType data) const override;

private:
	/*! Position of the column among the values of a time point; the count of columns when the
		container does not list it.
	*/
	std::size_t columnPosition() const;

	std::uint32_t	m_column;
};

} // namespace EM

#endif // EM_Extractor2DFromReferenceH
