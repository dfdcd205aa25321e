#ifndef EM_ExtractorBaseH
#define EM_ExtractorBaseH

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <ZEB_Unit.h>

#include "EM_CutType.h"

namespace DATAIO {
class DataIO;
class GeoFile;
}

namespace ZEB {
class UnitVector;
}

namespace EM {

class ManipulatorBase;

/*! Base of all extractors: an extractor cuts one output container (two for the model
	extractor) down to the data of one chart series, converts them to the units the chart asks
	for and, for 2D series, passes them through its manipulators.

	It refers to its containers (the data manager owns them), owns its manipulators, holds the
	target units, the cut selection with its follow-last marker and the update status. update()
	runs the cycle check - extract - convert; a container that is still empty is a normal state
	in which the extractor waits and reports only an information message.

	Dimensions are numbered as CutDimension: X, Y, Z (the container's space dimensions), then
	time (3). Cut values are in the container's own units: time points in its time unit, space
	coordinates in metres.
*/
class ExtractorBase {
public:
	/*! Cut index that means "the last time point"; a time cut with it follows a growing
		container. A space cut reads it as 0.
	*/
	static constexpr unsigned int LAST_INDEX = 0xFFFFFFFFu;

	/*! Verbosity level of the per-update log line and of the "still empty" information. */
	static constexpr int VERBOSE_LEVEL = 3;
	static constexpr int INFORMATION_LEVEL = 2;

	/*! The update status. */
	enum UpdateStatus {
		US_Waiting,						///< not updated yet, or the last update failed
		US_UpToDate,					///< the output holds the data of the last update
		US_NotUpdatableAfterUpToDate	///< was up to date, but the check of a later update failed
	};

	/*! The kind of output an extractor delivers. */
	enum OutputKind {
		OK_2D,		///< x and y values
		OK_3D,		///< values over a grid of x and y coordinates
		OK_Vector	///< vectors over a grid of x and y coordinates
	};

	/*! What information() tells about a part of the output. */
	enum InformationType {
		IT_Name,	///< the name of the data ("Time", "X", the quantity, ...)
		IT_Unit,	///< the name of the unit the output data are in
		NUM_IT
	};

	/*! The parts of an output that information() describes; which ones exist depends on the
		output kind.
	*/
	enum OutputDataType {
		ODT_X,			///< x values or x coordinates
		ODT_Y,			///< y values (2D) or y coordinates
		ODT_Values,		///< the values of a 3D output or the vector components
		NUM_ODT
	};

	/*! The selection of one cut dimension. */
	struct CutRecord {
		unsigned int	m_index = LAST_INDEX;	///< selected index into the dimension's coordinates
		std::string		m_name;					///< the dimension's name
	};

	/*! An extractor of the given containers (one; two for the model extractor), cut as the cut
		type says. Throws when there is no container or a container pointer is null.
	*/
	ExtractorBase(const std::vector<DATAIO::DataIO *> & dataIOs, CutType cutType);
	virtual ~ExtractorBase();
	ExtractorBase(const ExtractorBase &) = delete;
	ExtractorBase & operator=(const ExtractorBase &) = delete;

	/*! The kind of output (defined by the output bases). */
	virtual OutputKind outputKind() const = 0;
	/*! Name or unit of a part of the output; throws "Invalid data information type." for an
		unknown information type and "Invalid data information type (OutputDataTypes)." for a
		part the output does not have.
	*/
	virtual std::string information(InformationType type, OutputDataType data) const = 0;
	/*! The unit of an output axis (0 x, 1 y, 2 values of 3D and vector outputs) as the
		container gives it, before conversion; throws "Invalid axis requested." for an axis the
		output does not have.
	*/
	virtual ZEB::Unit axisUnitFromDataIO(unsigned int axis) const = 0;

	/*! The record of a cut dimension (its selected index and its name). */
	const CutRecord & cutRecord(unsigned int dimension) const;
	/*! True when the extractor fixes this dimension. */
	virtual bool isCutDimension(unsigned int dimension) const;
	/*! Number of cut dimensions. */
	virtual unsigned int cutDimensionCount() const;
	/*! The selected index of a cut dimension as stored (LAST_INDEX also for a dimension that is
		not cut).
	*/
	virtual unsigned int cutIndex(unsigned int dimension) const;
	/*! The coordinates of a cut dimension, ascending: the time points for the time dimension;
		none for a dimension that is not cut.
	*/
	virtual std::vector<double> cutValues(unsigned int dimension) const;
	/*! Selects the index whose coordinate is nearest to the value (the upper one at equal
		distance). Choosing the last time point this way makes the time cut follow new time
		points unless the time index is locked. Throws "Calling setCutValue on an extractor
		without cut values is invalid!" when the dimension has no coordinates.
	*/
	virtual void setCutValue(unsigned int dimension, double value);
	/*! The coordinate at the selected index: for no selection (LAST_INDEX) 0 in space and the
		last time point in time; 0 when the dimension has no coordinates.
	*/
	virtual double cutValue(unsigned int dimension) const;
	/*! Stores the index of a cut dimension and, when asked to, updates the extractor. Throws for
		a dimension that is not cut.
	*/
	virtual void setCutIndex(unsigned int dimension, unsigned int index, bool updateNow);
	/*! Copies the name of a dimension into name. */
	virtual void cutName(unsigned int dimension, std::string & name) const;
	/*! Stores the time index together with its lock flag (see setTimeIndexLocked()) and, when
		asked to, updates the extractor. Throws when time is not cut.
	*/
	virtual void setTimeCutIndex(unsigned int index, bool locked, bool updateNow);

	/*! Clears the output (defined by each output base). */
	virtual void clearOutput() = 0;
	/*! The post-update step: converts the extracted data into the target units (defined by each
		output base). Throws ZEB::Exception.
	*/
	virtual void convertUnits() = 0;

	/*! Checks that an update can run now. Reports every failed check through the message handler
		and returns false; never throws.
	*/
	virtual bool canUpdate();

	/*! The update cycle: check, fill the output name, extract, convert. Failures are reported;
		the status tells the outcome.
	*/
	void update();

	UpdateStatus status() const { return m_status; }
	CutType cutType() const { return m_cutType; }

	/*! The input containers. */
	const std::vector<DATAIO::DataIO *> & dataIOs() const { return m_dataIOs; }
	/*! The name of the unit of the values read from input container number input: the
		container's value unit; extractors of a column of a reference collection give the
		column's own unit.
	*/
	virtual std::string valueUnitName(std::size_t input) const;

	/*! The manipulators, applied in list order to 2D outputs. */
	const std::vector<std::unique_ptr<ManipulatorBase> > & manipulators() const { return m_manipulators; }
	/*! Appends a manipulator (owned from now on). */
	void addManipulator(std::unique_ptr<ManipulatorBase> manipulator);
	/*! Removes and deletes the manipulator at the index; throws for a bad index. */
	void removeManipulator(std::size_t index);

	/*! The geometry: the one set with setGeoFile(), else the geometry embedded in the first
		container; null when there is none.
	*/
	const DATAIO::GeoFile * geoFile() const;
	/*! Sets the geometry that the first container's elements or sides refer to (shared with
		the data manager that read it).
	*/
	void setGeoFile(std::shared_ptr<const DATAIO::GeoFile> geometry) { m_geoFile = geometry; }

	const std::string & outputName() const { return m_outputName; }
	void setOutputName(const std::string & name) { m_outputName = name; }

	const ZEB::Unit & targetValueUnit() const { return m_targetValueUnit; }
	const ZEB::Unit & targetXUnit() const { return m_targetXUnit; }
	const ZEB::Unit & targetYUnit() const { return m_targetYUnit; }
	void setTargetValueUnit(const ZEB::Unit & unit) { m_targetValueUnit = unit; }
	void setTargetXUnit(const ZEB::Unit & unit) { m_targetXUnit = unit; }
	void setTargetYUnit(const ZEB::Unit & unit) { m_targetYUnit = unit; }

	/*! When locked, a time index past the last time point shows the last time point but is
		kept, instead of turning into the follow-last marker.
	*/
	bool isTimeIndexLocked() const { return m_timeIndexLocked; }
	void setTimeIndexLocked(bool locked) { m_timeIndexLocked = locked; }

protected:
	/*! The kind-specific extraction into the output in the container's units. Throws
		ZEB::Exception.
	*/
	virtual void doUpdate() = 0;

	/*! The checks of canUpdate() for target units and containers; compareValueUnits selects
		check that each container's value unit converts to the target value unit.
	*/
	bool canUpdateCommon(bool compareValueUnits) const;

	/*! The time index to read from a container with count time points (count > 0): LAST_INDEX
		and indexes at or past the end give the last time point; an index past the end also
		turns into LAST_INDEX unless the time index is locked, so that the cut follows new time
		points from then on. An index past the end is reported as a warning.
	*/
	unsigned int resolveTimeIndex(std::size_t count);
	/*! The index to read along a space dimension with count cells (count > 0): LAST_INDEX is
		read as 0, indexes past the end as the last cell (reported as a warning).
	*/
	unsigned int resolveSpaceIndex(unsigned int dimension, std::size_t count) const;

	/*! The unit of a name from a container; throws with the given function id when the name is
		no known unit.
	*/
	static ZEB::Unit unitFromDataIO(const std::string & name, const char * functionId);

	/*! The extraction frame of the output bases: clears the output and runs extract, which fills
		the extracted data. A failure of extract clears the output again and is raised as "Error
		accessing data from DataIO." with the given function id.
	*/
	void extractIntoClearedOutput(const std::function<void()> & extract, const char * functionId);
	/*! Puts extracted data into result and converts it to the target unit; an empty vector only
		takes the unit, and data already in the target unit stay unchanged, bit for bit. A source
		handed over with std::move() is taken over instead of copied. Throws ZEB::Exception when
		the units do not convert.
	*/
	static void convertedCopy(ZEB::UnitVector source, const ZEB::Unit & target, ZEB::UnitVector & result);

	/*! The manipulators, applied in list order. */
	std::vector<std::unique_ptr<ManipulatorBase> >	m_manipulators;
	/*! The input containers, not owned. */
	std::vector<DATAIO::DataIO *>					m_dataIOs;

private:
	/*! The record of a dimension; throws for a dimension number out of range. */
	CutRecord & record(unsigned int dimension, const char * functionId);
	/*! Index of the coordinate nearest to value in ascending coordinates; upper one on a tie. */
	static unsigned int nearestIndex(const std::vector<double> & coordinates, double value);

	/*! The geometry set from outside; when null, the first container's embedded one is used. */
	std::shared_ptr<const DATAIO::GeoFile>			m_geoFile;
	std::string										m_outputName;
	ZEB::Unit										m_targetValueUnit;
	ZEB::Unit										m_targetXUnit;
	ZEB::Unit										m_targetYUnit;
	std::array<CutRecord, NUM_CD>					m_cuts;
	bool											m_timeIndexLocked = false;
	UpdateStatus									m_status = US_Waiting;
	CutType											m_cutType;
};

} // namespace EM

#endif // EM_ExtractorBaseH
