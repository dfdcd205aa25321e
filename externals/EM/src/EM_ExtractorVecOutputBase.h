#ifndef EM_ExtractorVecOutputBaseH
#define EM_ExtractorVecOutputBaseH

#include <ZEB_UnitVector.h>

#include "EM_ExtractorBase.h"

namespace EM {

/*! Base of the extractors whose output is a vector field: vectors at the points of a grid of x
	and y positions.

	Point (i, j) sits at (x()[i], y()[j]); its components are xComponents()[j*x().size() + i]
	and yComponents()[j*x().size() + i]; points without a vector hold NaN components. Positions
	are extracted in metres, components in the container's value unit; convertUnits() converts
	them to the target x, y and value units.
*/
class ExtractorVecOutputBase : public ExtractorBase {
public:
	ExtractorVecOutputBase(const std::vector<DATAIO::DataIO *> & dataIOs, CutType cutType);

	OutputKind outputKind() const override { return OK_Vector; }
	/*! Name and unit of the x positions (ODT_X), y positions (ODT_Y) and components (ODT_Values). */
	std::string information(InformationType type, OutputDataType data) const override;
	/*! Axis 0: x, 1: y (metres), 2: the components (the container's value unit). */
	ZEB::Unit axisUnitFromDataIO(unsigned int axis) const override;
	void clearOutput() override;
	/*! Copies the extracted field and converts positions and components to the target units. */
	void convertUnits() override;
	/*! The common checks, then "Target y-coordinate unit not set.", then lengths as target x
		and y units, which the geometry's positions convert to ("Invalid or not compatible units
		in DataIO container.").
	*/
	bool canUpdate() override;

	/*! Output x and y positions of the grid points (target x and y units). */
	const ZEB::UnitVector & x() const { return m_xOutput; }
	const ZEB::UnitVector & y() const { return m_yOutput; }
	/*! Output components (target value unit), x index fastest. */
	const ZEB::UnitVector & xComponents() const { return m_vxOutput; }
	const ZEB::UnitVector & yComponents() const { return m_vyOutput; }

protected:
	/*! The extracted field in metres and the container's value unit, set by doUpdate(). */
	ZEB::UnitVector		m_x;
	ZEB::UnitVector		m_y;
	ZEB::UnitVector		m_vx;
	ZEB::UnitVector		m_vy;

private:
	ZEB::UnitVector		m_xOutput;
	ZEB::UnitVector		m_yOutput;
	ZEB::UnitVector		m_vxOutput;
	ZEB::UnitVector		m_vyOutput;
};

} // namespace EM

#endif // EM_ExtractorVecOutputBaseH
