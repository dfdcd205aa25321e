#include "EM_ExtractorBase.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <DATAIO_DataIO.h>
#include <DATAIO_GeoFile.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>
#include <ZEB_UnitList.h>
#include <ZEB_UnitVector.h>

#include "EM_ManipulatorBase.h"

namespace EM {

namespace {

const char * const DIMENSION_NAMES[NUM_CD] = { "X", "Y", "Z", "Time" };

} // namespace


ExtractorBase::ExtractorBase(const std::vector<DATAIO::DataIO *> & dataIOs, CutType cutType) :
	m_dataIOs(dataIOs),
	m_cutType(cutType)
{
	FUNCID(ExtractorBase::ExtractorBase);
	if (m_dataIOs.empty())
		throw ZEB::Exception("Extractor without DataIO container.", FUNC_ID);
	for (DATAIO::DataIO * d : m_dataIOs)
		if (d == nullptr)
			throw ZEB::Exception("Invalid DataIO container (null pointer).", FUNC_ID);
	if (cutType >= NUM_CT)
		throw ZEB::Exception("Invalid cut type.", FUNC_ID);
	for (unsigned int d = 0; d < NUM_CD; ++d)
		m_cuts[d].m_name = DIMENSION_NAMES[d];
}


ExtractorBase::~ExtractorBase() = default;


const ExtractorBase::CutRecord & ExtractorBase::cutRecord(unsigned int dimension) const {
	FUNCID(ExtractorBase::cutRecord);
	if (dimension >= NUM_CD)
		throw ZEB::Exception(ZEB::MessageFormat("Invalid cut dimension %1.").arg(dimension), FUNC_ID);
	return m_cuts[dimension];
}


bool ExtractorBase::isCutDimension(unsigned int dimension) const {
	return CutTypes::isCut(m_cutType, dimension);
}


unsigned int ExtractorBase::cutDimensionCount() const {
	return CutTypes::cutCount(m_cutType);
}


unsigned int ExtractorBase::cutIndex(unsigned int dimension) const {
	return isCutDimension(dimension) ? m_cuts[dimension].m_index : LAST_INDEX;
}


std::vector<double> ExtractorBase::cutValues(unsigned int dimension) const {
	if (dimension == CD_Time && isCutDimension(dimension))
		return m_dataIOs.front()->timePoints();
	return std::vector<double>();
}


void ExtractorBase::setCutValue(unsigned int dimension, double value) {
	FUNCID(ExtractorBase::setCutValue);
	const std::vector<double> coordinates = cutValues(dimension);
	if (coordinates.empty())
		throw ZEB::Exception("Calling setCutValue on an extractor without cut values is invalid!", FUNC_ID);
	unsigned int index = nearestIndex(coordinates, value);
	// the newest time point, chosen by value, means "follow the newest time point"
	if (dimension == CD_Time && index + 1 == coordinates.size() && !m_timeIndexLocked)
		index = LAST_INDEX;
	record(dimension, FUNC_ID).m_index = index;
}


double ExtractorBase::cutValue(unsigned int dimension) const {
	const std::vector<double> coordinates = cutValues(dimension);
	if (coordinates.empty())
		return 0;
	const unsigned int index = cutIndex(dimension);
	if (index == LAST_INDEX)
		return dimension == CD_Time ? coordinates.back() : 0;
	return coordinates[std::min<std::size_t>(index, coordinates.size() - 1)];
}


void ExtractorBase::setCutIndex(unsigned int dimension, unsigned int index, bool updateNow) {
	FUNCID(ExtractorBase::setCutIndex);
	record(dimension, FUNC_ID).m_index = index;
	if (updateNow)
		update();
}


void ExtractorBase::cutName(unsigned int dimension, std::string & name) const {
	name = cutRecord(dimension).m_name;
}


void ExtractorBase::setTimeCutIndex(unsigned int index, bool locked, bool updateNow) {
	FUNCID(ExtractorBase::setTimeCutIndex);
	record(CD_Time, FUNC_ID).m_index = index;
	m_timeIndexLocked = locked;
	if (updateNow)
		update();
}


bool ExtractorBase::canUpdate() {
	return canUpdateCommon(true);
}


void ExtractorBase::update() {
	FUNCID(ExtractorBase::update);
	ZEB::reportProgress(ZEB::MessageFormat("Updating from '%1'\n").arg(m_dataIOs.front()->filename()).str(),
						FUNC_ID, VERBOSE_LEVEL);
	if (!canUpdate()) {
		// an output that was up to date keeps its data; one still waiting stays empty (in the target units)
		if (m_status == US_UpToDate)
			m_status = US_NotUpdatableAfterUpToDate;
		else if (m_status == US_Waiting)
			clearOutput();
		return;
	}
	if (m_outputName.empty())
		m_outputName = m_dataIOs.front()->quantity();
	try {
		doUpdate();
		convertUnits();
		m_status = US_UpToDate;
	}
	catch (ZEB::Exception & ex) {
		ex.reportAllAsErrors();
		ZEB::reportError("Update from DataIO failed.", FUNC_ID);
		m_status = US_Waiting;
	}
	catch (std::exception & ex) {
		// e.g. memory exhausted by a huge output: reported like every other failure
		ZEB::reportError(ex.what(), FUNC_ID);
		ZEB::reportError("Update from DataIO failed.", FUNC_ID);
		m_status = US_Waiting;
	}
}


void ExtractorBase::addManipulator(std::unique_ptr<ManipulatorBase> manipulator) {
	FUNCID(ExtractorBase::addManipulator);
	if (manipulator == nullptr)
		throw ZEB::Exception("Invalid manipulator (null pointer).", FUNC_ID);
	m_manipulators.push_back(std::move(manipulator));
}


void ExtractorBase::removeManipulator(std::size_t index) {
	FUNCID(ExtractorBase::removeManipulator);
	if (index >= m_manipulators.size())
		throw ZEB::Exception(ZEB::MessageFormat("Invalid manipulator index %1.").arg(static_cast<unsigned long>(index)), FUNC_ID);
	m_manipulators.erase(m_manipulators.begin() + static_cast<std::ptrdiff_t>(index));
}


std::string ExtractorBase::valueUnitName(std::size_t input) const {
	return m_dataIOs[input]->valueUnit();
}


const DATAIO::GeoFile * ExtractorBase::geoFile() const {
	if (m_geoFile != nullptr)
		return m_geoFile.get();
	return m_dataIOs.front()->geometry();
}


bool ExtractorBase::canUpdateCommon(bool compareValueUnits) const {
	FUNCID(ExtractorBase::canUpdate);
	if (m_targetXUnit.id() == 0) {
		ZEB::reportError("Target x-coordinate unit not set.", FUNC_ID);
		return false;
	}
	if (m_targetValueUnit.id() == 0) {
		ZEB::reportError("Target value unit not set.", FUNC_ID);
		return false;
	}
	const ZEB::UnitList & units = ZEB::UnitList::instance();
	const unsigned int secondsBase = ZEB::Unit("s").base_id();
	for (std::size_t i = 0; i < m_dataIOs.size(); ++i) {
		const DATAIO::DataIO * d = m_dataIOs[i];
		const ZEB::UnitData * timeUnit = units.retrieve(d->timeUnit());
		if (timeUnit == nullptr) {
			ZEB::reportError("Expected valid unit string (according to ZEB unit definition) for time unit in DataIO container.", FUNC_ID);
			return false;
		}
		if (timeUnit->base_id() != secondsBase) {
			ZEB::reportError("Expected valid time unit (convertible to seconds) in DataIO container.", FUNC_ID);
			return false;
		}
		const ZEB::UnitData * valueUnit = units.retrieve(valueUnitName(i));
		if (valueUnit == nullptr) {
			ZEB::reportError("Expected valid unit string (according to ZEB unit definition) for value unit in DataIO container.", FUNC_ID);
			return false;
		}
		if (compareValueUnits && valueUnit->base_id() != m_targetValueUnit.base_id()) {
			ZEB::reportError(ZEB::MessageFormat("Incompatible value units in DataIO and Extractor: %1 <-> %2.")
							 .arg(valueUnit->name()).arg(m_targetValueUnit.name()).str(), FUNC_ID);
			return false;
		}
		if (d->filename().empty()) {
			ZEB::reportError("Expected m_filename attribute in DataIO container.", FUNC_ID);
			return false;
		}
		if (d->quantity().empty()) {
			ZEB::reportError("Expected m_quantity attribute in DataIO container.", FUNC_ID);
			return false;
		}
		// a running simulation may not have written anything yet: wait quietly
		if (d->timePoints().empty()) {
			ZEB::reportProgress("DataIO container is (still) empty/no time points, yet. Delaying update of extractor "
								"until DataIO container has values.\n", FUNC_ID, INFORMATION_LEVEL);
			return false;
		}
		if (d->nValues() == 0) {
			ZEB::reportProgress("DataIO container is (still) empty (NUMS array empty). Delaying update of extractor "
								"until DataIO container has values.\n", FUNC_ID, INFORMATION_LEVEL);
			return false;
		}
	}
	return true;
}


unsigned int ExtractorBase::resolveTimeIndex(std::size_t count) {
	FUNCID(ExtractorBase::resolveTimeIndex);
	const unsigned int last = static_cast<unsigned int>(count - 1);
	unsigned int & index = m_cuts[CD_Time].m_index;
	if (index == LAST_INDEX)
		return last;
	if (index < count)
		return index;
	// the chart shows another time than the one asked for: say so
	ZEB::reportWarning(ZEB::MessageFormat(m_timeIndexLocked
		? "Cut index %1 of dimension '%2' is past the end of '%3'; index %4 is used instead."
		: "Cut index %1 of dimension '%2' is past the end of '%3'; index %4 is used instead, and the cut "
		  "follows the newest time point from now on.")
		.arg(index).arg(m_cuts[CD_Time].m_name).arg(m_dataIOs.front()->filename()).arg(last).str(), FUNC_ID);
	if (!m_timeIndexLocked)
		index = LAST_INDEX;
	return last;
}


unsigned int ExtractorBase::resolveSpaceIndex(unsigned int dimension, std::size_t count) const {
	FUNCID(ExtractorBase::resolveSpaceIndex);
	const unsigned int index = m_cuts[dimension].m_index;
	if (index == LAST_INDEX)
		return 0;
	const unsigned int last = static_cast<unsigned int>(count - 1);
	if (index <= last)
		return index;
	ZEB::reportWarning(ZEB::MessageFormat("Cut index %1 of dimension '%2' is past the end of '%3'; index %4 is used instead.")
		.arg(index).arg(m_cuts[dimension].m_name).arg(m_dataIOs.front()->filename()).arg(last).str(), FUNC_ID);
	return last;
}


ZEB::Unit ExtractorBase::unitFromDataIO(const std::string & name, const char * functionId) {
	const ZEB::UnitData * data = ZEB::UnitList::instance().retrieve(name);
	if (data == nullptr)
		throw ZEB::Exception(ZEB::MessageFormat("Unknown unit '%1' in DataIO container.").arg(name), functionId);
	return ZEB::Unit(data->id());
}


void ExtractorBase::extractIntoClearedOutput(const std::function<void()> & extract, const char * functionId) {
	clearOutput();
	try {
		extract();
	}
	catch (ZEB::Exception & ex) {
		clearOutput();
		throw ZEB::Exception(ex, "Error accessing data from DataIO.", functionId);
	}
}


void ExtractorBase::convertedCopy(ZEB::UnitVector source, const ZEB::Unit & target, ZEB::UnitVector & result) {
	result = std::move(source);
	if (result.empty() || result.m_unit == target)
		result.m_unit = target;
	else
		result.convert(target);
}


ExtractorBase::CutRecord & ExtractorBase::record(unsigned int dimension, const char * functionId) {
	if (dimension >= NUM_CD)
		throw ZEB::Exception(ZEB::MessageFormat("Invalid cut dimension %1.").arg(dimension), functionId);
	if (!isCutDimension(dimension))
		throw ZEB::Exception(ZEB::MessageFormat("Dimension %1 is not cut by this extractor.").arg(dimension), functionId);
	return m_cuts[dimension];
}


unsigned int ExtractorBase::nearestIndex(const std::vector<double> & coordinates, double value) {
	const double tolerance = std::fabs(value)*1e-6 + 1e-10;
	// first coordinate not below value - tolerance
	std::vector<double>::const_iterator it = std::lower_bound(coordinates.begin(), coordinates.end(), value - tolerance);
	if (it == coordinates.end())
		return static_cast<unsigned int>(coordinates.size() - 1);
	const unsigned int upper = static_cast<unsigned int>(it - coordinates.begin());
	if (std::fabs(*it - value) <= tolerance || upper == 0)
		return upper;
	const double below = value - coordinates[upper - 1];
	const double above = *it - value;
	// a tie within the tolerance goes to the upper coordinate
	return above <= below + tolerance ? upper : upper - 1;
}

} // namespace EM
