#ifndef EM_Extractor2DOutputBaseH
#define EM_Extractor2DOutputBaseH

#include <functional>

#include <ZEB_UnitVector.h>

#include "EM_ExtractorBase.h"

namespace EM {

/*! Base of the extractors whose output is a 2D series: x values and y values.

	doUpdate() of a derived extractor fills the extracted series (in the container's units) and
	applies the manipulators to them; convertUnits() then copies them into the output series,
	converts x to the target x-coordinate unit, adds the x shift and converts y to the target
	value unit. Manipulators therefore see the container's own units, and a change of target
	units or x shift needs only convertUnits(), not a new extraction.

	The x axis shows one dimension of the container: time for time series, a space dimension
	for profiles; the x values of a profile are positions in metres.
*/
class Extractor2DOutputBase : public ExtractorBase {
public:
	/*! xDimension: the dimension (CutDimension) on the x axis. */
	Extractor2DOutputBase(const std::vector<DATAIO::DataIO *> & dataIOs, CutType cutType, unsigned int xDimension);

	OutputKind outputKind() const override { return OK_2D; }
	/*! Name and unit of the x values (ODT_X) and y values (ODT_Y). */
	std::string information(InformationType type, OutputDataType data) const override;
	/*! Axis 0: the x unit, axis 1: the value unit, as the container gives them. */
	ZEB::Unit axisUnitFromDataIO(unsigned int axis) const override;
	/*! Clears the output; the empty x and y values are in the target units. */
	void clearOutput() override;
	void convertUnits() override;

	/*! The output x values: target x unit, shifted. */
	const ZEB::UnitVector & x() const { return m_xOutput; }
	/*! The output y values: target value unit. */
	const ZEB::UnitVector & y() const { return m_yOutput; }
	/*! The series as extracted and manipulated, in the container's units. */
	const ZEB::UnitVector & extractedX() const { return m_x; }
	const ZEB::UnitVector & extractedY() const { return m_y; }

	/*! Shift added to every output x value, in the target x unit (default 0). */
	double xShift() const { return m_xShift; }
	void setXShift(double shift) { m_xShift = shift; }

	/*! The dimension (CutDimension) on the x axis. */
	unsigned int xDimension() const { return m_xDimension; }

protected:
	/*! The unit of the x values as the container gives them: its time unit for time, metres for
		a space dimension.
	*/
	virtual ZEB::Unit xUnitFromDataIO() const;
	/*! The unit of the y values as the container gives them: valueUnitName() of the first
		container.
	*/
	virtual ZEB::Unit yUnitFromDataIO() const;
	/*! The name of the x values (the x dimension's name) or y values (the first container's
		quantity).
	*/
	virtual std::string dataName(OutputDataType data) const;

	/*! Reports an error and returns false when the target x unit does not fit the x dimension:
		a time unit for time, a length for a space dimension.
	*/
	bool checkTargetXUnit(const char * functionId) const;

	/*! The extraction pattern of all 2D extractors: clears the output, runs extract (which
		fills the extracted series), then applies every manipulator in list order. A failure of
		extract is raised as "Error accessing data from DataIO."; a manipulator that is no 2D
		manipulator raises "Invalid manipulator associated with extractor."; both with the given
		function id, and both leave the output cleared.
	*/
	void extractAndManipulate(const std::function<void()> & extract, const char * functionId);

	/*! Reads the time series of the value column at position column of a container into x
		(time points, time unit) and y (values in the column's unit, gaps as NaN). Throws
		ZEB::Exception.
	*/
	static void columnSeries(DATAIO::DataIO & dataIO, std::size_t column, ZEB::UnitVector & x, ZEB::UnitVector & y);

	/*! The series as extracted, in the container's units. */
	ZEB::UnitVector		m_x;
	ZEB::UnitVector		m_y;

private:
	unsigned int		m_xDimension;
	double				m_xShift = 0;
	ZEB::UnitVector		m_xOutput;
	ZEB::UnitVector		m_yOutput;
};

} // namespace EM

#endif // EM_Extractor2DOutputBaseH
