#ifndef EM_Extractor2DFromFieldBaseH
#define EM_Extractor2DFromFieldBaseH

#include <memory>

#include "EM_Extractor2DOutputBase.h"
#include "EM_FieldCut.h"

namespace EM {

/*! Common part of the extractors of 2D series from field data (Extractor2DFrom3D, -4D, -5D):
	the cut type fixes all dimensions but one. When time remains, the output is the time series
	of the value column in the selected space cell; when a space dimension remains, it is the
	profile along it at the selected time point: x the cell centres (metres) of the cells that
	hold a value, y their values.
*/
class Extractor2DFromFieldBase : public Extractor2DOutputBase {
public:
	/*! The coordinates of a cut dimension: time points, or the cell centres (metres) of a space
		dimension (none without geometry). Throws ZEB::Exception when the geometry does not fit
		the container.
	*/
	std::vector<double> cutValues(unsigned int dimension) const override;

	/*! The data format the extractor expects. */
	DATAIO::DataIO::DataFormat dataFormat() const { return m_fieldCut.dataFormat(); }

protected:
	/*! Throws with the given function id when the cut type does not leave exactly one dimension
		of the format. The geometry, when given, replaces the container's embedded one.
	*/
	Extractor2DFromFieldBase(DATAIO::DataIO * dataIO, DATAIO::DataIO::DataFormat format, CutType cutType,
							 std::shared_ptr<const DATAIO::GeoFile> geometry, const char * functionId);

	/*! The checks of canUpdate(): the common ones, then the data format (formatMessage), the
		geometry and the target x unit; reported with the given function id.
	*/
	bool canUpdateField(const char * formatMessage, const char * functionId);
	/*! The extraction of doUpdate(), failures raised with the given function id. */
	void doUpdateField(const char * functionId);

private:
	/*! Extracts the series into m_x and m_y. */
	void extract();

	FieldCut	m_fieldCut;
};

} // namespace EM

#endif // EM_Extractor2DFromFieldBaseH
