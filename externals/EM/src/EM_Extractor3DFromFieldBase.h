#ifndef EM_Extractor3DFromFieldBaseH
#define EM_Extractor3DFromFieldBaseH

#include <memory>

#include "EM_Extractor3DOutputBase.h"
#include "EM_FieldCut.h"

namespace EM {

/*! Common part of the extractors of 3D fields from field data (Extractor3DFrom3D, -4D, -5D):
	the cut type fixes all dimensions but two, which become the x and y axis (time first when it
	remains, then the space dimensions in the order X, Y, Z).

	Over time and space: x are the time points, y the cells of the space dimension (edges from
	the grid widths), value (t, j) the value of the column in cell j at time point t. Over two
	space dimensions at the selected time point: x and y the cells of both dimensions, value
	(i, j) the value of the column in cell (i, j). Cells without a column hold NaN.
*/
class Extractor3DFromFieldBase : public Extractor3DOutputBase {
public:
	/*! The coordinates of a cut dimension: time points, or the cell centres (metres) of a space
		dimension (none without geometry). Throws ZEB::Exception when the geometry does not fit
		the container.
	*/
	std::vector<double> cutValues(unsigned int dimension) const override;

	/*! The data format the extractor expects. */
	DATAIO::DataIO::DataFormat dataFormat() const { return m_fieldCut.dataFormat(); }

protected:
	/*! Throws with the given function id when the cut type does not leave exactly two dimensions
		of the format. The geometry, when given, replaces the container's embedded one.
	*/
	Extractor3DFromFieldBase(DATAIO::DataIO * dataIO, DATAIO::DataIO::DataFormat format, CutType cutType,
							 std::shared_ptr<const DATAIO::GeoFile> geometry, const char * functionId);

	/*! The checks of canUpdate(): the common ones, then the data format (formatMessage) and the
		geometry; reported with the given function id.
	*/
	bool canUpdateField(const char * formatMessage, const char * functionId);
	/*! The extraction of doUpdate(); failures clear the output and are raised as "Error
		accessing data from DataIO." with the given function id.
	*/
	void doUpdateField(const char * functionId);

private:
	/*! Extracts the field into m_x, m_y and m_values. */
	void extract();

	FieldCut	m_fieldCut;
};

} // namespace EM

#endif // EM_Extractor3DFromFieldBaseH
