#ifndef EM_Extractor3DOutputBaseH
#define EM_Extractor3DOutputBaseH

#include <ZEB_UnitVector.h>

#include "EM_ExtractorBase.h"

namespace EM {

/*! Base of the extractors whose output is a 3D field: values over a grid of x and y cells, for
	a colour grid.

	The x and y coordinates are the cells' edges (one more than cells) where the geometry gives
	widths, else their centres (time points, side positions); a colour grid draws either. The
	values are stored x index fastest: cell (i, j) holds values()[j*xCellCount() + i]; cells
	without a value hold NaN. Each axis shows one dimension of the container: time in the
	container's time unit, a space dimension in metres (before conversion).
*/
class Extractor3DOutputBase : public ExtractorBase {
public:
	/*! xDimension, yDimension: the dimensions (CutDimension) on the x and y axis. */
	Extractor3DOutputBase(const std::vector<DATAIO::DataIO *> & dataIOs, CutType cutType,
						  unsigned int xDimension, unsigned int yDimension);

	OutputKind outputKind() const override { return OK_3D; }
	/*! Name and unit of the x coordinates (ODT_X), y coordinates (ODT_Y) and values (ODT_Values). */
	std::string information(InformationType type, OutputDataType data) const override;
	/*! Axis 0: x, 1: y, 2: values, units as the container gives them. */
	ZEB::Unit axisUnitFromDataIO(unsigned int axis) const override;
	void clearOutput() override;
	/*! Copies the extracted coordinates, takes over the extracted values (m_values is empty
		afterwards) and converts x, y and values to the target units. */
	void convertUnits() override;
	/*! The common checks, then "Target y-coordinate unit not set.". */
	bool canUpdate() override;

	/*! Output x coordinates (target x unit). */
	const ZEB::UnitVector & x() const { return m_xOutput; }
	/*! Output y coordinates (target y unit). */
	const ZEB::UnitVector & y() const { return m_yOutput; }
	/*! Output values (target value unit), x index fastest. */
	const ZEB::UnitVector & values() const { return m_valuesOutput; }
	/*! The output value of cell (i, j): i along x, j along y. */
	double value(std::size_t i, std::size_t j) const { return m_valuesOutput.m_data[j*m_xCellCount + i]; }
	/*! Number of cells along x and y. */
	std::size_t xCellCount() const { return m_xCellCount; }
	std::size_t yCellCount() const { return m_yCellCount; }

	unsigned int xDimension() const { return m_xDimension; }
	unsigned int yDimension() const { return m_yDimension; }

protected:
	/*! The unit of a dimension as the container gives it: its time unit for time, else metres. */
	ZEB::Unit dimensionUnit(unsigned int dimension) const;

	/*! The extracted data in the container's units, set by doUpdate(). */
	ZEB::UnitVector		m_x;
	ZEB::UnitVector		m_y;
	ZEB::UnitVector		m_values;
	std::size_t			m_xCellCount = 0;
	std::size_t			m_yCellCount = 0;

private:
	unsigned int		m_xDimension;
	unsigned int		m_yDimension;
	ZEB::UnitVector		m_xOutput;
	ZEB::UnitVector		m_yOutput;
	ZEB::UnitVector		m_valuesOutput;
};

} // namespace EM

#endif // EM_Extractor3DOutputBaseH
