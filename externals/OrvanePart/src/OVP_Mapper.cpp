#include "OVP_Mapper.h"

#include <algorithm>
#include <sstream>

#include <QDir>
#include <QFileInfo>

#include <tinyxml.h>

#include <EM_Extractor2DFromReference.h>
#include <EM_Extractor2DFromTwo2D.h>
#include <EM_Extractor2DOutputBase.h>
#include <EM_ExtractorBase.h>
#include <EM_ExtractorFactory.h>
#include <EM_Factory.h>
#include <EM_ManipulatorBase.h>
#include <EM_ModelTwo2DBase.h>
#include <EM_ModelTwo2DIsopleth.h>

#include <Sci_AbstractLineSeriesModel.h>
#include <Sci_Chart.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>
#include <ZEB_StringUtils.h>
#include <ZEB_UnitList.h>

#include "OVP_DataManager.h"
#include "OVP_ModelOptions.h"
#include "OVP_ProjectRelativePath.h"
#include "OVP_SeriesBarExtractorModel.h"
#include "OVP_SeriesColorGridExtractorModel.h"
#include "OVP_SeriesIsoplethExtractorModel.h"
#include "OVP_SeriesLineExtractorModel.h"
#include "OVP_SeriesVectorFieldExtractorModel.h"
#include "OVP_SeriesWTAExtractorModel.h"

namespace OVP {

namespace {

typedef SCI::AbstractCartesianChartModel CM;
typedef SCI::AbstractLineSeriesModel LM;

/*! The text of the ModelType element of two-container extractors. */
const char * const MODEL_TYPE_TWO_2D = "MT_2DFromTwo2D";

/*! The chartType attribute of the ChartModel element, indexed by Mapper::MapperType. */
const char * const CHART_TYPE_KEYWORDS[] = { "", "2D", "3D", "Vector", "Isopleth", "WTA", "Bar" };

/*! The model type keyword of the isopleth and the WTA wood chart, indexed by Mapper::MapperType
	(empty for the other kinds).
*/
const char * const PLANE_MODEL_TYPES[] = { "", "", "", "", "IsoplethModel", "WTAWoodDegradationModel", "" };

/*! The chart that a new mapper of a model shows in the temperature and relative humidity plane:
	MT_Isopleth or MT_WTA; MT_Empty for a model of a line chart and for none.
*/
Mapper::MapperType planeKindOfModel(const std::string & modelType) {
	for (int k = Mapper::MT_Isopleth; k <= Mapper::MT_WTA; ++k)
		if (modelType == PLANE_MODEL_TYPES[k])
			return static_cast<Mapper::MapperType>(k);
	return Mapper::MT_Empty;
}

/*! The chart of a chartType attribute that a mapper is made of: MT_Isopleth or MT_WTA, MT_Empty
	for the others, whose kind the extractors decide.
*/
Mapper::MapperType planeKindOfChartType(const char * chartType) {
	for (int k = Mapper::MT_Isopleth; chartType != nullptr && k <= Mapper::MT_WTA; ++k)
		if (std::string(chartType) == CHART_TYPE_KEYWORDS[k])
			return static_cast<Mapper::MapperType>(k);
	return Mapper::MT_Empty;
}

/*! Throws, with the function id, when the data set of an isopleth or WTA wood chart would get
	manipulators, which change a model's series over time and have nothing to act on in these
	charts.
*/
void checkNoManipulators(const DataSetSetup::KeywordList & manipulators, const char * functionId) {
	if (!manipulators.empty())
		throw ZEB::Exception("An isopleth or WTA wood chart shows the climate its model evaluated; manipulators "
							 "do not apply to it.", functionId);
}

/*! Keywords of the data formats, indexed by DATAIO::DataIO::DataFormat. */
const char * const DATA_FORMAT_KEYWORDS[] = { "DF_2D", "DF_3D", "DF_4D", "DF_5D" };

/*! Names of the cut index elements, indexed by EM::CutDimension. */
const char * const CUT_INDEX_ELEMENTS[] = { "CutIndexX", "CutIndexY", "CutIndexZ", "CutIndexT" };

/*! The default title of axes and new line series. */
const char * const DEFAULT_AXIS_TITLE = "$quantity [$unit]";
const char * const DEFAULT_SERIES_TITLE = "$filename";

/*! The text of an element, empty when it has none. */
std::string elementText(const TiXmlElement * e) {
	return e->GetText() == nullptr ? std::string() : std::string(e->GetText());
}

/*! Reads a cut or column index; "-1" stands for the unset index. */
unsigned int parseIndex(const std::string & text, const std::string & element, const char * funcId) {
	try {
		const long long value = ZEB::string2val<long long>(text);
		if (value == -1)
			return EM::ExtractorBase::LAST_INDEX;
		if (value < 0 || value > 0xFFFFFFFFll)
			throw ZEB::Exception("Index out of range.", funcId);
		return static_cast<unsigned int>(value);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Invalid index '%1' in '%2' tag.").arg(text).arg(element), funcId);
	}
}

/*! The default title of the series of a model. */
QString defaultModelTitle(const EM::ModelTwo2DBase & model) {
	return QString::fromStdString(ZEB::MessageFormat("%1 from $filename").arg(model.title()).str());
}

/*! Appends an element with text (none when empty) to parent and returns it. */
TiXmlElement * appendTextElement(TiXmlElement * parent, const char * name, const std::string & text) {
	TiXmlElement * e = new TiXmlElement(name);
	parent->LinkEndChild(e);
	if (!text.empty())
		e->LinkEndChild(new TiXmlText(text));
	return e;
}

/*! True when two units are defined and can be converted into each other. */
bool convertible(const ZEB::Unit & a, const ZEB::Unit & b) {
	return a.id() != 0 && b.id() != 0 && a.base_id() == b.base_id();
}

/*! The unit of an axis of a chart model. */
ZEB::Unit axisUnit(const CM & model, int axisPosition) {
	return ZEB::Unit(model.axisData(axisPosition, CM::AxisUnit).toUInt());
}

/*! Names of the space dimensions in messages, indexed by EM::CutDimension. */
const char * const SPACE_DIMENSION_NAMES[] = { "X", "Y", "Z" };

/*! The chart axes an output lies on, each with the output axis (as axisUnitFromDataIO() counts)
	it shows: x on the bottom axis, the values of a 2D series on its y axis, y and the values of
	a 3D or vector output on the left and the right axis.
*/
std::vector<std::pair<int, unsigned int> > outputAxes(const EM::ExtractorBase & extractor, bool leftAxis) {
	if (extractor.outputKind() == EM::ExtractorBase::OK_2D)
		return { { CM::BottomAxis, 0 }, { leftAxis ? CM::LeftAxis : CM::RightAxis, 1 } };
	return { { CM::BottomAxis, 0 }, { CM::LeftAxis, 1 }, { CM::RightAxis, 2 } };
}

/*! The error of a data set whose data format is not the chart's. */
ZEB::Exception formatMismatch(DATAIO::DataIO::DataFormat selected, DATAIO::DataIO::DataFormat chart, const char * functionId) {
	return ZEB::Exception(ZEB::MessageFormat("Mismatching data format of selected datasets and datasets in chart. "
		"Selected data set hat format '%1', whereas data set in diagram/mapper has '%2'.")
		.arg(DATAIO::DataIO::dataFormatText(selected)).arg(DATAIO::DataIO::dataFormatText(chart)), functionId);
}

/*! Checks that every manipulator type exists and accepts its parameter. */
void checkManipulators(const DataSetSetup::KeywordList & manipulators, const char * functionId) {
	for (const std::pair<std::string, std::string> & m : manipulators) {
		std::unique_ptr<EM::ManipulatorBase> manipulator = Mapper::createManipulator(m.first);
		try {
			manipulator->setFromParameter(m.second);
		}
		catch (ZEB::Exception & ex) {
			throw ZEB::Exception(ex, "Invalid parameter for manipulator.", functionId);
		}
	}
}

/*! The parameter text of the model of a setup, as the model writes it; keys the setup does not
	list have their defaults. Throws ZEB::Exception for an unknown model or key and when the
	model refuses a value.
*/
std::string modelParameterText(const DataSetSetup & setup, const char * functionId) {
	ModelOptions options;
	options.setModelType(setup.m_modelType);
	for (const std::pair<std::string, std::string> & p : setup.m_modelParameters) {
		unsigned int i = 0;
		while (i < options.parameters().size() && p.first != options.parameters()[i].m_key)
			++i;
		if (i == options.parameters().size())
			throw ZEB::Exception(ZEB::MessageFormat("Model '%1' has no parameter '%2'.").arg(setup.m_modelType)
								 .arg(p.first), functionId);
		options.setValue(i, QString::fromStdString(p.second));
	}
	try {
		return options.parameterText();
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, "Invalid parameter or model.", functionId);
	}
}

/*! Throws, with the function id, when a reference output has no data set in the column (the
	number its header lists); other outputs pass.
*/
void checkReferenceColumn(const DATAIO::DataIO & dataIO, std::uint32_t column, const char * functionId) {
	if (dataIO.type() != DATAIO::DataIO::T_REFERENCE)
		return;
	const std::vector<std::uint32_t> & columns = dataIO.nums();
	if (std::find(columns.begin(), columns.end(), column) == columns.end())
		throw ZEB::Exception(ZEB::MessageFormat("File '%1' has no data set in column %2.").arg(dataIO.filename()).arg(column),
							 functionId);
}

/*! Sets an axis unit through the model's base implementation, which does not touch the
	extractors.
*/
void setAxisUnit(CM & model, int axisPosition, const ZEB::Unit & unit) {
	model.CM::setAxisData(unit.id(), axisPosition, CM::AxisUnit);
}

} // namespace


/*! What an Extractor element describes. */
struct Mapper::ExtractorDefinition {
	QString											m_fileName;
	QString											m_fileName2;
	bool											m_hasFileName = false;
	bool											m_hasFileName2 = false;
	EM::CutType										m_cutType = EM::CT_NoCut;
	bool											m_hasDataFormat = false;
	DATAIO::DataIO::DataFormat						m_dataFormat = DATAIO::DataIO::NUM_DF;
	std::uint32_t									m_column = 0;
	bool											m_hasColumn = false;
	/*! The column of the second file of a model. */
	std::uint32_t									m_column2 = 0;
	bool											m_hasColumn2 = false;
	bool											m_hasModel = false;
	std::string										m_modelType;
	std::string										m_modelParameter;
	bool											m_hasCutIndex[EM::NUM_CD] = { false, false, false, false };
	unsigned int									m_cutIndex[EM::NUM_CD] = { 0, 0, 0, 0 };
	bool											m_timeIndexLocked = false;
	std::vector<std::unique_ptr<EM::ManipulatorBase> >	m_manipulators;
};


EM::Extractor2DOutputBase & Mapper::ExtractorEntry::output2D() const {
	Q_ASSERT(m_extractor != nullptr && m_extractor->outputKind() == EM::ExtractorBase::OK_2D);
	return static_cast<EM::Extractor2DOutputBase &>(*m_extractor);
}


Mapper::Mapper(DataManager & dataManager, QObject * parent) :
	QObject(parent),
	m_dataManager(dataManager)
{
}


Mapper::~Mapper() {
	// the plot listens to the model; it goes first
	delete m_chart.data();
}


std::unique_ptr<Mapper> Mapper::createNewMapper(DataManager & dataManager, const std::vector<DataSet> & dataSets,
												const std::string & modelType, const std::string & modelParameter,
												const ManipulatorList & manipulators, MapperType kind)
{
	FUNCID(Mapper::createNewMapper);
	const MapperType planeKind = planeKindOfModel(modelType);
	if (planeKind != MT_Empty)
		checkNoManipulators(manipulators, FUNC_ID);
	std::unique_ptr<Mapper> mapper(new Mapper(dataManager));
	ExtractorEntry entry = mapper->createEntry(dataSets, modelType, modelParameter, manipulators);
	if (kind == MT_Bar) {
		SeriesBarExtractorModel::checkTimeSeries(entry);
		mapper->m_type = MT_Bar;
	}
	if (modelType.empty()) {
		const std::string dataSet = referenceDataSetName(entry);
		const std::string & quantity = dataSet.empty() ? entry.m_dataIOs.front()->quantity() : dataSet;
		mapper->m_name = quantity.empty() ? QFileInfo(dataSets.front().m_fileName).fileName()
										  : QString::fromStdString(quantity);
	}
	else
		mapper->m_name = QString::fromUtf8(static_cast<const EM::Extractor2DFromTwo2D &>(*entry.m_extractor).model().title());
	mapper->appendEntry(std::move(entry), planeKind);
	mapper->setupNewChart();
	if (mapper->isSeriesChart())
		mapper->updateEntry(mapper->m_2DExtractors.front());
	else
		mapper->updateSingleEntry();
	return mapper;
}


void Mapper::addExtractor(const std::vector<DataSet> & dataSets, const std::string & modelType,
						  const std::string & modelParameter, const ManipulatorList & manipulators)
{
	FUNCID(Mapper::addExtractor);
	if (isPlaneChart())
		throw ZEB::Exception("An isopleth or WTA wood chart shows the one model it was made of; further data sets "
							 "cannot be added to it.", FUNC_ID);
	if (!isSeriesChart())
		throw ZEB::Exception("Invalid extractor definition in mapper. Cannot add 2D extractor to 3D mapper.", FUNC_ID);
	if (dataSets.empty())
		throw ZEB::Exception("No data set selected.", FUNC_ID);
	// a bar chart checks the new series against the periods of the others
	extractPendingData();

	// 1. the data format must be that of the data sets in the chart
	const DATAIO::DataIO::DataFormat mapperFormat = m_2DExtractors.front().m_dataFormat;
	std::shared_ptr<DATAIO::DataIO> first = m_dataManager.container(dataSets.front().m_fileName);
	if (first->dataFormat() != mapperFormat)
		throw formatMismatch(first->dataFormat(), mapperFormat, FUNC_ID);

	ExtractorEntry entry;
	if (modelType.empty()) {
		entry = createEntry(dataSets, modelType, modelParameter, manipulators);
	}
	else {
		try {
			entry = createEntry(dataSets, modelType, modelParameter, manipulators);
		}
		catch (ZEB::Exception & ex) {
			throw ZEB::Exception(ex, "Try to add a invalid extractor to a mapper for Extractor2DFromTwo2D.", FUNC_ID);
		}
	}
	if (entry.m_extractor->outputKind() != EM::ExtractorBase::OK_2D)
		throw ZEB::Exception("Invalid extractor definition in mapper. Only one 3D/vector field extractor allowed.", FUNC_ID);

	if (m_type == MT_Bar) {
		SeriesBarExtractorModel & barModel = static_cast<SeriesBarExtractorModel &>(*m_chartModel);
		barModel.checkSeries(entry);
		setTargetUnitsFromAxes(entry, true);
		updateEntry(entry);
		const int index = static_cast<int>(m_2DExtractors.size());
		appendEntry(std::move(entry));
		barModel.initSeries(index);
		return;
	}

	// 2. the x values must convert to the x axis
	if (!convertible(entry.m_extractor->axisUnitFromDataIO(0), axisUnit(*m_chartModel, CM::BottomAxis)))
		throw ZEB::Exception("X-axis units are not compatible.", FUNC_ID);

	// 3. the values must convert to one of the y axes
	const ZEB::Unit valueUnit = entry.m_extractor->axisUnitFromDataIO(1);
	const ZEB::Unit left = axisUnit(*m_chartModel, CM::LeftAxis);
	ZEB::Unit right = axisUnit(*m_chartModel, CM::RightAxis);
	// a right axis that no series uses yet takes the unit of the first data set that needs it
	if (right.id() == 0 && !convertible(valueUnit, left)) {
		setAxisUnit(*m_chartModel, CM::RightAxis, valueUnit);
		right = valueUnit;
	}
	bool leftAxis = true;
	if (!convertible(valueUnit, left)) {
		if (!convertible(valueUnit, right))
			throw ZEB::Exception(ZEB::MessageFormat("Unit [%1] of selected dataset does match neither left y-axis unit "
				"[%2] nor right y-axis unit [%3]").arg(valueUnit.name()).arg(left.name()).arg(right.name()), FUNC_ID);
		leftAxis = false;
	}

	setTargetUnitsFromAxes(entry, leftAxis);
	// a shown chart asks for the units and values of the series as soon as it is announced
	updateEntry(entry);
	const int index = static_cast<int>(m_2DExtractors.size());
	appendEntry(std::move(entry));
	static_cast<SeriesLineExtractorModel &>(*m_chartModel).initSeries(index, leftAxis);
}


DataSetSetup Mapper::dataSetSetup(unsigned int index) const {
	FUNCID(Mapper::dataSetSetup);
	const ExtractorEntry & entry = entryAt(index, FUNC_ID);
	const EM::ExtractorBase & extractor = *entry.m_extractor;
	DataSetSetup setup;
	for (const std::shared_ptr<DATAIO::DataIO> & dataIO : entry.m_dataIOs)
		setup.m_fileNames.append(QString::fromStdString(dataIO->filename()));
	const EM::Extractor2DFromReference * reference = dynamic_cast<const EM::Extractor2DFromReference *>(&extractor);
	if (reference != nullptr)
		setup.m_column = reference->column();
	setup.m_cutType = extractor.cutType();
	for (unsigned int d = 0; d < EM::NUM_CD; ++d) {
		if (!extractor.isCutDimension(d))
			continue;
		unsigned int i = extractor.cutIndex(d);
		if (d == EM::CD_Time) {
			// a time cut that follows offers the time point shown now for the moment it stops
			setup.m_followLastTimePoint = i == EM::ExtractorBase::LAST_INDEX;
			const std::size_t count = entry.m_dataIOs.front()->timePoints().size();
			if (setup.m_followLastTimePoint)
				i = count == 0 ? 0 : static_cast<unsigned int>(count - 1);
		}
		else if (i == EM::ExtractorBase::LAST_INDEX) {
			i = 0;
		}
		setup.m_cutIndices[d] = i;
	}
	for (const std::unique_ptr<EM::ManipulatorBase> & m : extractor.manipulators())
		setup.m_manipulators.emplace_back(m->typeKeyword(), m->parameter());
	const EM::Extractor2DFromTwo2D * twoFiles = dynamic_cast<const EM::Extractor2DFromTwo2D *>(&extractor);
	if (twoFiles != nullptr) {
		// a file read as a whole keeps the column a reference data set would start with
		if (twoFiles->column(0) != EM::ModelTwo2DBase::SINGLE_VALUE)
			setup.m_column = twoFiles->column(0);
		if (twoFiles->column(1) != EM::ModelTwo2DBase::SINGLE_VALUE)
			setup.m_column2 = twoFiles->column(1);
		setup.m_modelType = twoFiles->model().typeKeyword();
		std::istringstream text(twoFiles->model().parameter());
		std::string key;
		std::string value;
		while (text >> key >> value)
			setup.m_modelParameters.emplace_back(key, value);
		const EM::ModelTwo2DIsopleth * isopleth = isoplethModel(entry);
		if (isopleth != nullptr)
			setup.m_isoplethLines = IsoplethLineSet::of(*isopleth);
	}
	return setup;
}


void Mapper::setDataSetSetup(unsigned int index, const DataSetSetup & setup) {
	extractPendingData();
	applyDataSetSetup(prepareDataSetSetup(index, setup));
}


Mapper::PreparedSetup Mapper::prepareDataSetSetup(unsigned int index, const DataSetSetup & setup) const {
	FUNCID(Mapper::setDataSetSetup);
	const ExtractorEntry & old = entryAt(index, FUNC_ID);
	if (isPlaneChart()) {
		if (setup.m_modelType != PLANE_MODEL_TYPES[m_type])
			throw ZEB::Exception(ZEB::MessageFormat("The chart shows the model '%1', its data set cannot take "
				"another one.").arg(PLANE_MODEL_TYPES[m_type]), FUNC_ID);
		checkNoManipulators(setup.m_manipulators, FUNC_ID);
	}
	checkSetupFiles(setup, old);
	checkManipulators(setup.m_manipulators, FUNC_ID);
	const bool withModel = !setup.m_modelType.empty();
	const std::string modelParameter = withModel ? modelParameterText(setup, FUNC_ID) : std::string();

	std::vector<DataSet> dataSets;
	for (int i = 0; i < setup.m_fileNames.size(); ++i)
		dataSets.push_back(DataSet{ setup.m_fileNames[i], i == 0 ? setup.m_column : setup.m_column2, setup.m_cutType });
	for (unsigned int d = 0; d < EM::NUM_CD && !withModel; ++d)
		if (EM::CutTypes::isCut(setup.m_cutType, d))
			dataSets.front().m_cutIndices.emplace_back(d, setup.usesIndex(d) ? setup.m_cutIndices[d]
																			   : EM::ExtractorBase::LAST_INDEX);
	PreparedSetup prepared;
	prepared.m_index = index;
	prepared.m_entry = createEntry(dataSets, setup.m_modelType, modelParameter, setup.m_manipulators);
	EM::ModelTwo2DIsopleth * isopleth = isoplethModel(prepared.m_entry);
	if (isopleth != nullptr)
		isopleth->setLines(setup.m_isoplethLines.m_lines, setup.m_isoplethLines.m_name);
	else if (!setup.m_isoplethLines.isDefault())
		throw ZEB::Exception("Isopleth lines apply to the isopleth model only.", FUNC_ID);
	checkCutIndices(setup, prepared.m_entry, old);
	prepared.m_axisUnits = axisUnitsFor(prepared.m_entry, index, onLeftAxis(index));
	prepared.m_entry.m_title = old.m_title;
	return prepared;
}


void Mapper::applyDataSetSetup(PreparedSetup prepared) {
	const unsigned int index = prepared.m_index;
	Q_ASSERT(index < extractorCount());
	const bool leftAxis = onLeftAxis(index);
	m_chartModel->beginChangeModel();
	for (const std::pair<int, ZEB::Unit> & axis : prepared.m_axisUnits)
		setAxisUnit(*m_chartModel, axis.first, axis.second);
	ExtractorEntry & target = isSeriesChart() ? m_2DExtractors[index] : m_3DExtractor;
	const EM::ModelTwo2DIsopleth * oldIsopleth = isoplethModel(target);
	const std::string oldLines = oldIsopleth == nullptr ? std::string() : oldIsopleth->linesName();
	target = std::move(prepared.m_entry);
	setTargetUnitsFromAxes(target, leftAxis);
	if (isSeriesChart())
		update2DExtractor(index);
	else
		updateSingleEntry();
	const EM::ModelTwo2DIsopleth * newIsopleth = isoplethModel(target);
	// other lines are other series: they take their names and looks from the new set
	if (m_type == MT_Isopleth && newIsopleth != nullptr && newIsopleth->linesName() != oldLines)
		static_cast<SeriesIsoplethExtractorModel &>(*m_chartModel).initLineSeries();
	m_chartModel->endChangeModel();
}


void Mapper::checkSetupFiles(const DataSetSetup & setup, const ExtractorEntry & old) const {
	FUNCID(Mapper::setDataSetSetup);
	const bool withModel = !setup.m_modelType.empty();
	if (setup.m_fileNames.size() != (withModel ? 2 : 1))
		throw ZEB::Exception(withModel ? "A model combines two data files." : "A data set without model reads one data file.",
							 FUNC_ID);
	for (int i = 0; i < setup.m_fileNames.size(); ++i) {
		const QString & fileName = setup.m_fileNames[i];
		const std::uint32_t column = i == 0 ? setup.m_column : setup.m_column2;
		const std::shared_ptr<DATAIO::DataIO> dataIO = m_dataManager.container(fileName);
		if (dataIO->dataFormat() != old.m_dataFormat)
			throw formatMismatch(dataIO->dataFormat(), old.m_dataFormat, FUNC_ID);
		if (withModel) {
			checkReferenceColumn(*dataIO, column, FUNC_ID);
			continue;
		}
		const std::vector<EM::CutType> valid = EM::ExtractorFactory::validCutTypes(dataIO->dataFormat(), dataIO->type(),
																				   old.m_extractor->outputKind());
		if (std::find(valid.begin(), valid.end(), setup.m_cutType) == valid.end())
			throw ZEB::Exception(ZEB::MessageFormat("Cut type '%1' is not valid for data format '%2' in this chart.")
								 .arg(EM::CutTypes::keyword(setup.m_cutType))
								 .arg(DATAIO::DataIO::dataFormatText(dataIO->dataFormat())), FUNC_ID);
		checkReferenceColumn(*dataIO, column, FUNC_ID);
	}
}


std::vector<std::pair<int, ZEB::Unit> > Mapper::axisUnitsFor(const ExtractorEntry & entry, unsigned int index,
															   bool leftAxis) const
{
	FUNCID(Mapper::setDataSetSetup);
	std::vector<std::pair<int, ZEB::Unit> > units;
	// the model of a temperature and humidity plane keeps its units whatever the files hold
	if (isPlaneChart())
		return units;
	for (const std::pair<int, unsigned int> & axis : outputAxes(*entry.m_extractor, leftAxis)) {
		const ZEB::Unit unit = dataUnitOnAxis(entry, axis.first, axis.second);
		const ZEB::Unit current = axisUnit(*m_chartModel, axis.first);
		if (convertible(unit, current))
			continue;
		if (!axisDataUnits(axis.first, static_cast<int>(index)).empty())
			throw ZEB::Exception(ZEB::MessageFormat("Unit [%1] of the data set does not fit the unit [%2] of the axis, "
													"which other series use.").arg(unit.name()).arg(current.name()), FUNC_ID);
		units.emplace_back(axis.first, unit);
	}
	return units;
}


void Mapper::checkCutIndices(const DataSetSetup & setup, const ExtractorEntry & entry, const ExtractorEntry & old) {
	FUNCID(Mapper::setDataSetSetup);
	for (unsigned int d = 0; d < EM::NUM_CD; ++d) {
		if (!setup.usesIndex(d))
			continue;
		const unsigned int i = setup.m_cutIndices[d];
		const std::size_t count = entry.m_extractor->cutValues(d).size();
		if (i < count)
			continue;
		if (d == EM::CD_Time) {
			// a time point picked before a rerun of the simulation stays picked until it is reached again
			if (old.m_extractor->cutType() == setup.m_cutType && old.m_extractor->cutIndex(d) == i
				&& old.m_dataIOs == entry.m_dataIOs)
				continue;
			throw ZEB::Exception(ZEB::MessageFormat("Time index %1 is beyond the last time point of the file, "
													"which has %2 time points.").arg(i).arg(count), FUNC_ID);
		}
		throw ZEB::Exception(ZEB::MessageFormat("Cut index %1 in direction %2 is beyond the %3 cells of the file.")
							 .arg(i).arg(SPACE_DIMENSION_NAMES[d]).arg(count), FUNC_ID);
	}
}


void Mapper::removeExtractor(unsigned int index) {
	checkRemovable(index);
	const int i = static_cast<int>(index);
	m_chartModel->beginRemoveSeries(i, i);
	m_2DExtractors.erase(m_2DExtractors.begin() + i);
	m_chartModel->endRemoveSeries();
}


void Mapper::checkRemovable(unsigned int index) const {
	FUNCID(Mapper::removeExtractor);
	if (m_type != MT_2D)
		throw ZEB::Exception("Only series of a line chart can be removed.", FUNC_ID);
	entryAt(index, FUNC_ID);
	if (m_2DExtractors.size() == 1)
		throw ZEB::Exception("The last series of a chart cannot be removed; delete the chart instead.", FUNC_ID);
}


void Mapper::restoreSeries(unsigned int index, Mapper & source) {
	FUNCID(Mapper::restoreSeries);
	if (m_type != MT_2D || source.m_type != MT_2D)
		throw ZEB::Exception("Only series of a line chart can be restored.", FUNC_ID);
	source.entryAt(index, FUNC_ID);
	if (index > m_2DExtractors.size())
		throw ZEB::Exception(ZEB::MessageFormat("Cannot restore series #%1 of a chart with %2 series.")
							 .arg(index).arg(m_2DExtractors.size()), FUNC_ID);
	const int i = static_cast<int>(index);
	const LM & from = static_cast<const LM &>(*source.m_chartModel);
	std::vector<QVariant> properties;
	// the stored values, not what the derived model makes of them; width and colour are parts of the pen
	for (int role = LM::SeriesTitleText; role < LM::NUM_SDR; ++role)
		properties.push_back(from.LM::seriesData(i, role));
	ExtractorEntry entry = std::move(source.m_2DExtractors[index]);
	source.m_chartModel->beginRemoveSeries(i, i);
	source.m_2DExtractors.erase(source.m_2DExtractors.begin() + i);
	source.m_chartModel->endRemoveSeries();

	setTargetUnitsFromAxes(entry, properties[LM::SeriesLeftAxis - LM::SeriesTitleText].toBool());
	updateEntry(entry);
	m_chartModel->beginInsertSeries(i, i);
	m_2DExtractors.insert(m_2DExtractors.begin() + i, std::move(entry));
	m_chartModel->endInsertSeries();
	LM & to = static_cast<LM &>(*m_chartModel);
	for (int role = LM::SeriesTitleText; role < LM::NUM_SDR; ++role)
		if (role != LM::SeriesTitle && role != LM::SeriesPenWidth && role != LM::SeriesPenColor)
			to.LM::setSeriesData(properties[static_cast<std::size_t>(role - LM::SeriesTitleText)], i, role);
}


void Mapper::checkAxisUnit(int axisPosition, unsigned int unitId) const {
	FUNCID(Mapper::checkAxisUnit);
	if (axisPosition < 0 || axisPosition >= CM::NUM_AXES)
		throw ZEB::Exception(ZEB::MessageFormat("Invalid axis position #%1.").arg(axisPosition), FUNC_ID);
	const ZEB::Unit unit(unitId);
	for (const ZEB::Unit & data : axisDataUnits(axisPosition))
		if (!convertible(unit, data))
			throw ZEB::Exception(ZEB::MessageFormat("Unit [%1] does not fit the data shown on the axis, which are in [%2].")
								 .arg(unit.name()).arg(data.name()), FUNC_ID);
}


std::vector<ZEB::Unit> Mapper::axisUnitChoices(int axisPosition) const {
	std::vector<ZEB::Unit> units;
	if (!m_chartModel || axisPosition < 0 || axisPosition >= CM::NUM_AXES)
		return units;
	const ZEB::Unit current = axisUnit(*m_chartModel, axisPosition);
	if (current.id() == 0)
		return units;
	const ZEB::UnitList & list = ZEB::UnitList::instance();
	for (unsigned int id = 1; id < list.size(); ++id)
		if (list.retrieve(id)->base_id() == current.base_id())
			units.push_back(ZEB::Unit(id));
	return units;
}


const Mapper::ExtractorEntry & Mapper::entryAt(unsigned int index, const char * functionId) const {
	if (index >= extractorCount())
		throw ZEB::Exception(ZEB::MessageFormat("The chart has no data set #%1.").arg(index), functionId);
	return isSeriesChart() ? m_2DExtractors[index] : m_3DExtractor;
}


QString Mapper::dataSetTitle(unsigned int index) const {
	if (!isSeriesChart() || index >= m_2DExtractors.size())
		return m_name;
	const int role = m_type == MT_Bar ? int(SCI::AbstractBarSeriesModel::BarTitleText) : int(LM::SeriesTitle);
	return m_chartModel->seriesData(static_cast<int>(index), role).toString();
}


std::vector<ZEB::Unit> Mapper::axisDataUnits(int axisPosition, int skippedEntry) const {
	std::vector<ZEB::Unit> units;
	for (unsigned int i = 0; i < extractorCount(); ++i) {
		if (static_cast<int>(i) == skippedEntry)
			continue;
		const ExtractorEntry & entry = isSeriesChart() ? m_2DExtractors[i] : m_3DExtractor;
		if (isPlaneChart()) {
			// temperatures on the x axis, relative humidities on the y axis, in the model's units
			const EM::ModelTwo2DBase & model = static_cast<const EM::Extractor2DFromTwo2D &>(*entry.m_extractor).model();
			if (axisPosition == CM::BottomAxis)
				units.push_back(model.temperatureUnit());
			else if (axisPosition == CM::LeftAxis)
				units.push_back(model.humidityUnit());
			continue;
		}
		for (const std::pair<int, unsigned int> & axis : outputAxes(*entry.m_extractor, onLeftAxis(i)))
			if (axis.first == axisPosition)
				units.push_back(dataUnitOnAxis(entry, axis.first, axis.second));
	}
	return units;
}


ZEB::Unit Mapper::dataUnitOnAxis(const ExtractorEntry & entry, int axisPosition, unsigned int outputAxis) const {
	if (m_type == MT_Bar && axisPosition == CM::LeftAxis)
		return static_cast<const SeriesBarExtractorModel &>(*m_chartModel).dataUnit(entry);
	return entry.m_extractor->axisUnitFromDataIO(outputAxis);
}


bool Mapper::onLeftAxis(unsigned int index) const {
	return m_type != MT_2D || static_cast<const LM &>(*m_chartModel).lineProperties(static_cast<int>(index)).m_leftAxis;
}


void Mapper::readXML(const TiXmlElement * element, const QString & projectDir, const DataPathRemap & remap,
					 Extraction extraction)
{
	FUNCID(Mapper::readXML);
	bool chartModelRead = false;
	// the chart type tells whether the one extractor of a model makes a chart of the model's plane,
	// and a bar chart is made from the first of its extractors
	const TiXmlElement * chartModelElement = element->FirstChildElement("ChartModel");
	const char * chartTypeAttribute = chartModelElement == nullptr ? nullptr : chartModelElement->Attribute("chartType");
	const MapperType planeKind = planeKindOfChartType(chartTypeAttribute);
	if (chartTypeAttribute != nullptr && std::string(chartTypeAttribute) == chartTypeKeyword(MT_Bar) && m_type == MT_Empty)
		m_type = MT_Bar;
	const std::map<unsigned int, IsoplethLineSet> lineSets = readIsoplethLines(chartModelElement);
	for (const TiXmlElement * child = element->FirstChildElement(); child != nullptr;
		 child = child->NextSiblingElement())
	{
		const std::string & name = child->ValueStr();
		if (name == "Extractors") {
			for (const TiXmlElement * e = child->FirstChildElement(); e != nullptr; e = e->NextSiblingElement()) {
				if (e->ValueStr() != "Extractor")
					throw ZEB::Exception(ZEB::MessageFormat("Expected 'Extractor' tag, got '%1'").arg(e->ValueStr()), FUNC_ID);
				ExtractorDefinition def;
				readExtractorDefinition(e, projectDir, remap, def);
				ExtractorEntry entry = createExtractorEntry(def);
				const auto lineSet = lineSets.find(extractorCount());
				if (lineSet != lineSets.end()) {
					EM::ModelTwo2DIsopleth * isopleth = isoplethModel(entry);
					if (isopleth == nullptr)
						throw ZEB::Exception(ZEB::MessageFormat("Isopleth lines given for extractor %1, which has no "
																"isopleth model.").arg(extractorCount()), FUNC_ID);
					isopleth->setLines(lineSet->second.m_lines, lineSet->second.m_name);
				}
				const bool is2D = entry.m_extractor->outputKind() == EM::ExtractorBase::OK_2D;
				if (isPlaneChart())
					throw ZEB::Exception("Invalid extractor definition in mapper. An isopleth or WTA wood chart has "
										 "only one extractor.", FUNC_ID);
				if (m_type == MT_3D || m_type == MT_Vector) {
					if (is2D)
						throw ZEB::Exception("Invalid extractor definition in mapper. Cannot add 2D extractor to 3D mapper.", FUNC_ID);
					throw ZEB::Exception("Invalid extractor definition in mapper. Only one 3D/vector field extractor allowed.", FUNC_ID);
				}
				if (isSeriesChart() && !is2D)
					throw ZEB::Exception("Invalid extractor definition in mapper. Only one 3D/vector field extractor allowed.", FUNC_ID);
				if (m_type == MT_Bar) {
					if (m_chartModel)
						static_cast<const SeriesBarExtractorModel &>(*m_chartModel).checkPeriods(entry);
					else
						SeriesBarExtractorModel::checkTimeSeries(entry);
				}
				appendEntry(std::move(entry), planeKind);
			}
		}
		else if (name == "ChartModel") {
			if (extractorCount() == 0)
				throw ZEB::Exception("Cannot have 'ChartModel' tag before added Extractors to mapper.", FUNC_ID);
			const char * chartType = child->Attribute("chartType");
			const char * expected = chartTypeKeyword(m_type);
			if (chartType != nullptr && std::string(chartType) != expected)
				throw ZEB::Exception(ZEB::MessageFormat("Chart type '%1' does not fit the extractors of the mapper "
														"(expected '%2').").arg(chartType).arg(expected), FUNC_ID);
			m_chartModel->readXML(child);
			chartModelRead = true;
		}
		else {
			throw ZEB::Exception(ZEB::MessageFormat("Expected 'Extractors' tag or 'ChartModel' tag, got '%1'").arg(name),
								 FUNC_ID);
		}
	}
	if (extractorCount() == 0)
		return;
	if (!chartModelRead) {
		setupNewChart();
		for (unsigned int i = 1; i < m_2DExtractors.size(); ++i) {
			if (m_type == MT_Bar)
				static_cast<SeriesBarExtractorModel &>(*m_chartModel).initSeries(static_cast<int>(i));
			else
				static_cast<SeriesLineExtractorModel &>(*m_chartModel).initSeries(static_cast<int>(i), true);
		}
	}
	else if (m_type == MT_2D) {
		// the titles saved with the series are those of the chart model
		const LM & lineModel = static_cast<const LM &>(*m_chartModel);
		for (unsigned int i = 0; i < m_2DExtractors.size(); ++i)
			m_2DExtractors[i].m_title = lineModel.lineProperties(static_cast<int>(i)).m_titleText;
	}
	else if (m_type == MT_Bar) {
		const SCI::AbstractBarSeriesModel & barModel = static_cast<const SCI::AbstractBarSeriesModel &>(*m_chartModel);
		for (unsigned int i = 0; i < m_2DExtractors.size(); ++i)
			m_2DExtractors[i].m_title = barModel.barSymbolInfo(static_cast<int>(i)).m_titleText;
	}
	setTargetUnitsFromAxes();
	if (extraction == ExtractNow)
		updateAllEntries();
	else
		m_dataPending = true;
}


void Mapper::extractPendingData() {
	if (!m_dataPending)
		return;
	m_dataPending = false;
	updateAllEntries();
}


void Mapper::readExtractorDefinition(const TiXmlElement * element, const QString & projectDir,
									 const DataPathRemap & remap, ExtractorDefinition & def)
{
	FUNCID(Mapper::readXML);
	for (const TiXmlElement * e = element->FirstChildElement(); e != nullptr; e = e->NextSiblingElement()) {
		const std::string & name = e->ValueStr();
		const std::string text = elementText(e);
		if (name == "DataIOFileName") {
			if (text.empty())
				throw ZEB::Exception("Error in 'Extractor' tag, DataIOFileName tag must not be empty.", FUNC_ID);
			def.m_fileName = remap.apply(ProjectRelativePath::resolve(QString::fromStdString(text), projectDir));
			def.m_hasFileName = true;
		}
		else if (name == "DataIOFileName2") {
			if (text.empty())
				throw ZEB::Exception("Error in 'Extractor' tag, DataIOFileName2 tag must not be empty.", FUNC_ID);
			def.m_fileName2 = remap.apply(ProjectRelativePath::resolve(QString::fromStdString(text), projectDir));
			def.m_hasFileName2 = true;
		}
		else if (name == "CutType") {
			def.m_cutType = EM::CutTypes::fromKeyword(text);
			if (def.m_cutType == EM::NUM_CT)
				throw ZEB::Exception(ZEB::MessageFormat("Unknown cut type '%1'.").arg(text), FUNC_ID);
		}
		else if (name == "DataFormat") {
			def.m_dataFormat = DATAIO::DataIO::NUM_DF;
			for (int f = 0; f < DATAIO::DataIO::NUM_DF; ++f)
				if (text == DATA_FORMAT_KEYWORDS[f])
					def.m_dataFormat = static_cast<DATAIO::DataIO::DataFormat>(f);
			if (def.m_dataFormat == DATAIO::DataIO::NUM_DF)
				throw ZEB::Exception(ZEB::MessageFormat("Unknown data format '%1'.").arg(text), FUNC_ID);
			def.m_hasDataFormat = true;
		}
		else if (name == "DataType") {
			// the extractor follows the output type of the file itself; the tag tells the reader
			if (text != "T_REFERENCE" && text != "T_FLUX")
				throw ZEB::Exception(ZEB::MessageFormat("Unknown data type '%1'.").arg(text), FUNC_ID);
		}
		else if (name == "ColumnIndex") {
			def.m_column = parseIndex(text, name, FUNC_ID);
			def.m_hasColumn = true;
		}
		else if (name == "ColumnIndex2") {
			def.m_column2 = parseIndex(text, name, FUNC_ID);
			def.m_hasColumn2 = true;
		}
		else if (name == "ModelType") {
			if (text != MODEL_TYPE_TWO_2D)
				throw ZEB::Exception("Unknown or invalid 'ModelType' attribute.", FUNC_ID);
			const char * type = e->Attribute("type");
			if (type == nullptr)
				throw ZEB::Exception("Expected 'type' attribute in MT_2DFromTwo2D model.", FUNC_ID);
			const char * parameter = e->Attribute("Parameter");
			if (parameter == nullptr)
				throw ZEB::Exception("Expected 'Parameter' attribute in MT_2DFromTwo2D model.", FUNC_ID);
			def.m_hasModel = true;
			def.m_modelType = type;
			def.m_modelParameter = parameter;
		}
		else if (name == "Manipulator") {
			const char * type = e->Attribute("type");
			if (type == nullptr)
				throw ZEB::Exception("Expected 'type' attribute in Manipulator.", FUNC_ID);
			std::unique_ptr<EM::ManipulatorBase> manipulator = createManipulator(type);
			manipulator->setFromParameter(text);
			def.m_manipulators.push_back(std::move(manipulator));
		}
		else {
			bool isCutIndex = false;
			for (unsigned int d = 0; d < EM::NUM_CD; ++d) {
				if (name != CUT_INDEX_ELEMENTS[d])
					continue;
				isCutIndex = true;
				def.m_hasCutIndex[d] = true;
				def.m_cutIndex[d] = parseIndex(text, name, FUNC_ID);
				if (d == EM::CD_Time) {
					const char * locked = e->Attribute("locked");
					def.m_timeIndexLocked = locked != nullptr && std::string(locked) == "yes";
				}
			}
			if (!isCutIndex)
				throw ZEB::Exception(ZEB::MessageFormat("Unknown/invalid xml tag '%1' in Extractor section.").arg(name),
									 FUNC_ID);
		}
	}

	if (!def.m_hasDataFormat)
		throw ZEB::Exception("Missing data format for extractor.", FUNC_ID);
	if (!def.m_hasFileName)
		throw ZEB::Exception("Extractor does not reference a DataIO file, which is necessary to re-create the extractor.",
							 FUNC_ID);
	if (def.m_hasModel && !def.m_hasFileName2)
		throw ZEB::Exception("Extractor2DFromTwo2D does not reference th second DataIO file, which is necessary to "
							 "re-create the extractor.", FUNC_ID);
	if (def.m_hasFileName2 && !def.m_hasModel)
		throw ZEB::Exception("Invalid extractor definition in mapper. Model for Extractor2DFromTwo2D missing.", FUNC_ID);
	if (def.m_hasModel && EM::Factory::createModel(def.m_modelType) == nullptr)
		throw ZEB::Exception(ZEB::MessageFormat("Invalid extractor definition in mapper. Unknown model type '%1'.")
							 .arg(def.m_modelType), FUNC_ID);
}


Mapper::ExtractorEntry Mapper::createExtractorEntry(ExtractorDefinition & def) const {
	FUNCID(Mapper::readXML);
	ExtractorEntry entry;
	entry.m_dataFormat = def.m_dataFormat;
	try {
		entry.m_dataIOs.push_back(m_dataManager.container(def.m_fileName));
		if (def.m_hasModel) {
			entry.m_dataIOs.push_back(m_dataManager.container(def.m_fileName2));
			std::unique_ptr<EM::ModelTwo2DBase> model = createModel(def.m_modelType);
			model->setFromParameter(def.m_modelParameter);
			// sessions written before models read columns name none: each file's single value
			const std::uint32_t single = EM::ModelTwo2DBase::SINGLE_VALUE;
			entry.m_extractor = EM::ExtractorFactory::createExtractor(entry.m_dataIOs[0].get(), def.m_hasColumn ? def.m_column : single,
				entry.m_dataIOs[1].get(), def.m_hasColumn2 ? def.m_column2 : single, std::move(model));
		}
		else {
			entry.m_extractor = createExtractor(entry.m_dataIOs[0].get(), def.m_dataFormat, def.m_cutType, def.m_column);
		}
		for (unsigned int d = 0; d < EM::NUM_CD; ++d) {
			if (!def.m_hasCutIndex[d])
				continue;
			if (d == EM::CD_Time)
				entry.m_extractor->setTimeCutIndex(def.m_cutIndex[d], def.m_timeIndexLocked, false);
			else
				entry.m_extractor->setCutIndex(d, def.m_cutIndex[d], false);
		}
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Cannot create extractor (DataIO = %1).")
							 .arg(def.m_fileName.toStdString()), FUNC_ID);
	}
	for (std::unique_ptr<EM::ManipulatorBase> & m : def.m_manipulators)
		entry.m_extractor->addManipulator(std::move(m));
	entry.m_revisions.assign(entry.m_dataIOs.size(), 0);
	entry.m_title = def.m_hasModel ? defaultModelTitle(static_cast<const EM::Extractor2DFromTwo2D &>(*entry.m_extractor).model())
								   : QString(DEFAULT_SERIES_TITLE);
	return entry;
}


void Mapper::writeXML(TiXmlElement * element, const QString & projectDir, bool writeAll) const {
	TiXmlElement * extractors = new TiXmlElement("Extractors");
	element->LinkEndChild(extractors);
	for (const ExtractorEntry & entry : m_2DExtractors)
		writeExtractor(extractors, entry, projectDir);
	if (m_3DExtractor.m_extractor)
		writeExtractor(extractors, m_3DExtractor, projectDir);

	if (!m_chartModel)
		return;
	TiXmlElement * chartModel = new TiXmlElement("ChartModel");
	element->LinkEndChild(chartModel);
	chartModel->SetAttribute("chartType", chartTypeKeyword(m_type));
	const bool previous = m_chartModel->writeAll();
	m_chartModel->setWriteAll(writeAll);
	m_chartModel->writeXML(chartModel);
	m_chartModel->setWriteAll(previous);
	writeIsoplethLines(chartModel);
}


EM::ModelTwo2DIsopleth * Mapper::isoplethModel(const ExtractorEntry & entry) {
	EM::Extractor2DFromTwo2D * twoFiles = dynamic_cast<EM::Extractor2DFromTwo2D *>(entry.m_extractor.get());
	return twoFiles == nullptr ? nullptr : dynamic_cast<EM::ModelTwo2DIsopleth *>(&twoFiles->model());
}


std::map<unsigned int, IsoplethLineSet> Mapper::readIsoplethLines(const TiXmlElement * chartModel) {
	FUNCID(Mapper::readXML);
	std::map<unsigned int, IsoplethLineSet> sets;
	if (chartModel == nullptr)
		return sets;
	for (const TiXmlElement * e = chartModel->FirstChildElement("IsoplethLines"); e != nullptr;
		 e = e->NextSiblingElement("IsoplethLines"))
	{
		int index = -1;
		if (e->QueryIntAttribute("extractor", &index) != TIXML_SUCCESS || index < 0)
			throw ZEB::Exception("Expected 'extractor' attribute in IsoplethLines.", FUNC_ID);
		try {
			sets[static_cast<unsigned int>(index)] = IsoplethLineSet::readXML(e);
		}
		catch (ZEB::Exception & ex) {
			throw ZEB::Exception(ex, ZEB::MessageFormat("Error reading the isopleth lines of extractor %1.").arg(index),
								 FUNC_ID);
		}
	}
	return sets;
}


void Mapper::writeIsoplethLines(TiXmlElement * chartModel) const {
	for (unsigned int i = 0; i < extractorCount(); ++i) {
		const ExtractorEntry & entry = isSeriesChart() ? m_2DExtractors[i] : m_3DExtractor;
		const EM::ModelTwo2DIsopleth * isopleth = entry.m_extractor ? isoplethModel(entry) : nullptr;
		const IsoplethLineSet set = isopleth == nullptr ? IsoplethLineSet() : IsoplethLineSet::of(*isopleth);
		if (!set.isDefault())
			set.writeXML(chartModel, i);
	}
}


void Mapper::writeExtractor(TiXmlElement * parent, const ExtractorEntry & entry, const QString & projectDir) {
	const EM::ExtractorBase & extractor = *entry.m_extractor;
	TiXmlElement * e = new TiXmlElement("Extractor");
	parent->LinkEndChild(e);
	for (std::size_t i = 0; i < entry.m_dataIOs.size() && i < 2; ++i) {
		const QString path = ProjectRelativePath::toFileText(QString::fromStdString(entry.m_dataIOs[i]->filename()),
															 projectDir);
		appendTextElement(e, i == 0 ? "DataIOFileName" : "DataIOFileName2", path.toStdString());
	}
	appendTextElement(e, "CutType", EM::CutTypes::keyword(extractor.cutType()));
	if (entry.m_dataFormat < DATAIO::DataIO::NUM_DF)
		appendTextElement(e, "DataFormat", DATA_FORMAT_KEYWORDS[entry.m_dataFormat]);

	const EM::Extractor2DFromReference * reference = dynamic_cast<const EM::Extractor2DFromReference *>(&extractor);
	if (reference != nullptr)
		appendTextElement(e, "DataType", "T_REFERENCE");
	else if (extractor.outputKind() == EM::ExtractorBase::OK_Vector)
		appendTextElement(e, "DataType", "T_FLUX");
	if (reference != nullptr)
		appendTextElement(e, "ColumnIndex", std::to_string(reference->column()));

	const EM::Extractor2DFromTwo2D * twoFiles = dynamic_cast<const EM::Extractor2DFromTwo2D *>(&extractor);
	if (twoFiles != nullptr) {
		if (twoFiles->column(0) != EM::ModelTwo2DBase::SINGLE_VALUE)
			appendTextElement(e, "ColumnIndex", std::to_string(twoFiles->column(0)));
		if (twoFiles->column(1) != EM::ModelTwo2DBase::SINGLE_VALUE)
			appendTextElement(e, "ColumnIndex2", std::to_string(twoFiles->column(1)));
		TiXmlElement * model = appendTextElement(e, "ModelType", MODEL_TYPE_TWO_2D);
		model->SetAttribute("type", twoFiles->model().typeKeyword());
		model->SetAttribute("Parameter", twoFiles->model().parameter());
	}

	if (extractor.isCutDimension(EM::CD_Time) && extractor.cutIndex(EM::CD_Time) != EM::ExtractorBase::LAST_INDEX) {
		TiXmlElement * t = appendTextElement(e, CUT_INDEX_ELEMENTS[EM::CD_Time],
											 std::to_string(extractor.cutIndex(EM::CD_Time)));
		t->SetAttribute("locked", extractor.isTimeIndexLocked() ? "yes" : "no");
	}
	for (unsigned int d = EM::CD_X; d <= EM::CD_Z; ++d)
		if (extractor.isCutDimension(d) && extractor.cutIndex(d) != EM::ExtractorBase::LAST_INDEX)
			appendTextElement(e, CUT_INDEX_ELEMENTS[d], std::to_string(extractor.cutIndex(d)));

	for (const std::unique_ptr<EM::ManipulatorBase> & m : extractor.manipulators()) {
		TiXmlElement * me = appendTextElement(e, "Manipulator", m->parameter());
		me->SetAttribute("type", m->typeKeyword());
	}
}


QStringList Mapper::dataFileNames(const TiXmlElement * element, const QString & projectDir) {
	QStringList names;
	for (const TiXmlElement * extractors = element->FirstChildElement("Extractors"); extractors != nullptr;
		 extractors = extractors->NextSiblingElement("Extractors"))
	{
		for (const TiXmlElement * e = extractors->FirstChildElement("Extractor"); e != nullptr;
			 e = e->NextSiblingElement("Extractor"))
		{
			for (const char * tag : { "DataIOFileName", "DataIOFileName2" }) {
				const TiXmlElement * name = e->FirstChildElement(tag);
				const std::string text = name == nullptr ? std::string() : elementText(name);
				if (!text.empty())
					names.append(ProjectRelativePath::resolve(QString::fromStdString(text), projectDir));
			}
		}
	}
	return names;
}


QStringList Mapper::dataFileNames() const {
	QStringList names;
	const auto append = [&names](const ExtractorEntry & entry) {
		for (const std::shared_ptr<DATAIO::DataIO> & dataIO : entry.m_dataIOs)
			names.append(QString::fromStdString(dataIO->filename()));
	};
	for (const ExtractorEntry & entry : m_2DExtractors)
		append(entry);
	if (m_3DExtractor.m_extractor)
		append(m_3DExtractor);
	return names;
}


std::vector<Mapper::ExtractorEntry> Mapper::repointedEntries(const DataPathRemap & remap) const {
	FUNCID(Mapper::repointedEntries);
	std::vector<const ExtractorEntry *> current;
	for (const ExtractorEntry & entry : m_2DExtractors)
		current.push_back(&entry);
	if (m_3DExtractor.m_extractor)
		current.push_back(&m_3DExtractor);
	// each extractor is rebuilt as a session file rebuilds it: written into its element and read
	// back with re-pointed files; written relative to the root, every path stays whole
	const QString root = QDir::rootPath();
	std::vector<ExtractorEntry> entries;
	for (const ExtractorEntry * old : current) {
		TiXmlElement parent("Extractors");
		writeExtractor(&parent, *old, root);
		ExtractorDefinition def;
		readExtractorDefinition(parent.FirstChildElement(), root, remap, def);
		ExtractorEntry entry = createExtractorEntry(def);
		for (std::size_t i = 0; i < entry.m_dataIOs.size(); ++i) {
			const DATAIO::DataIO::DataFormat expected = old->m_dataIOs[i]->dataFormat();
			const DATAIO::DataIO & dataIO = *entry.m_dataIOs[i];
			if (dataIO.dataFormat() != expected)
				throw ZEB::Exception(ZEB::MessageFormat("Data file '%1' holds data of format '%2' instead of '%3'.")
									 .arg(dataIO.filename()).arg(DATAIO::DataIO::dataFormatText(dataIO.dataFormat()))
									 .arg(DATAIO::DataIO::dataFormatText(expected)), FUNC_ID);
		}
		entry.m_title = old->m_title;
		entries.push_back(std::move(entry));
	}
	return entries;
}


void Mapper::replaceEntries(std::vector<ExtractorEntry> entries) {
	Q_ASSERT(entries.size() == extractorCount());
	if (isSeriesChart()) {
		for (std::size_t i = 0; i < entries.size(); ++i)
			m_2DExtractors[i] = std::move(entries[i]);
	}
	else if (!entries.empty()) {
		m_3DExtractor = std::move(entries.front());
	}
	// target units from the axes, new output, and the chart re-reads every series
	applyAxisUnits();
}


std::unique_ptr<EM::ExtractorBase> Mapper::createExtractor(DATAIO::DataIO * dataIO, DATAIO::DataIO::DataFormat format,
														   EM::CutType cutType, std::uint32_t column) const
{
	FUNCID(Mapper::createExtractor);
	const std::vector<EM::CutType> valid = EM::ExtractorFactory::validCutTypes(format, dataIO->type());
	const bool validCut = std::find(valid.begin(), valid.end(), cutType) != valid.end();
	switch (format) {
		case DATAIO::DataIO::DF_2D :
			// a time series has nothing to cut
			cutType = EM::CT_NoCut;
			break;
		case DATAIO::DataIO::DF_3D :
			if (!validCut)
				throw ZEB::Exception("Cannot create extractor from 3D without valid cut type.", FUNC_ID);
			break;
		case DATAIO::DataIO::DF_4D :
			if (dataIO->type() == DATAIO::DataIO::T_FLUX && cutType != EM::CT_TimeCut)
				throw ZEB::Exception("Cannot create extractor from vector field for non-time cut types.", FUNC_ID);
			if (!validCut)
				throw ZEB::Exception("Cannot create extractor from 4D without valid cut type.", FUNC_ID);
			break;
		case DATAIO::DataIO::DF_5D :
			if (!validCut)
				throw ZEB::Exception("Cannot create extractor from 5D without valid cut type.", FUNC_ID);
			break;
		default :
			Q_ASSERT_X(false, FUNC_ID, "invalid data format");
			throw ZEB::Exception(ZEB::MessageFormat("Invalid data format #%1.").arg(static_cast<int>(format)), FUNC_ID);
	}
	return EM::ExtractorFactory::createExtractor(dataIO, cutType, m_dataManager.geometry(dataIO), column);
}


std::unique_ptr<EM::ManipulatorBase> Mapper::createManipulator(const std::string & type) {
	FUNCID(Mapper::createManipulator);
	std::unique_ptr<EM::ManipulatorBase> manipulator = EM::Factory::createManipulator(type);
	if (!manipulator)
		throw ZEB::Exception(ZEB::MessageFormat("Unknown/unsupported manipulator of type '%1'.").arg(type), FUNC_ID);
	return manipulator;
}


std::unique_ptr<EM::ModelTwo2DBase> Mapper::createModel(const std::string & type) {
	FUNCID(Mapper::createModel);
	std::unique_ptr<EM::ModelTwo2DBase> model = EM::Factory::createModel(type);
	if (!model)
		throw ZEB::Exception(ZEB::MessageFormat("Unknown/unsupported model of type '%1'.").arg(type), FUNC_ID);
	return model;
}


const char * Mapper::chartTypeKeyword(MapperType kind) {
	return CHART_TYPE_KEYWORDS[kind];
}


unsigned int Mapper::extractorCount() const {
	return static_cast<unsigned int>(m_2DExtractors.size()) + (m_3DExtractor.m_extractor ? 1 : 0);
}


SCI::Chart * Mapper::chart() {
	if (m_chart.isNull() && m_chartModel) {
		extractPendingData();
		m_chart = new SCI::Chart;
		m_chart->setModel(m_chartModel.get());
	}
	return m_chart.data();
}


std::string Mapper::referenceDataSetName(const ExtractorEntry & entry) {
	const EM::Extractor2DFromReference * reference = dynamic_cast<const EM::Extractor2DFromReference *>(entry.m_extractor.get());
	return reference != nullptr ? reference->dataSetName() : std::string();
}


QString Mapper::displayTitle(const QString & title, const ExtractorEntry & entry) {
	if (entry.m_dataIOs.empty() || !title.contains("$filename"))
		return title;
	QString result = title;
	return result.replace("$filename", QFileInfo(QString::fromStdString(entry.m_dataIOs.front()->filename())).fileName());
}


void Mapper::setSeriesTitle(unsigned int index, const QString & title) {
	Q_ASSERT(index < m_2DExtractors.size());
	m_2DExtractors[index].m_title = title;
}


void Mapper::refresh(DATAIO::DataIO::RefreshMode mode) {
	// a timer that fires while the window repaints during a read must not read the files again
	// nor update from a container half read; its next refresh catches up
	if (!m_chartModel || m_dataManager.isReading())
		return;
	// all files first, so that the chart redraws once and only when something changed
	std::vector<unsigned int> changed;
	for (unsigned int i = 0; i < m_2DExtractors.size(); ++i)
		if (refreshEntry(m_2DExtractors[i], mode))
			changed.push_back(i);
	const bool fieldChanged = m_3DExtractor.m_extractor && refreshEntry(m_3DExtractor, mode);
	// data still to be extracted is taken from the refreshed files when it is needed
	if ((changed.empty() && !fieldChanged) || m_dataPending)
		return;
	m_chartModel->beginChangeModel();
	for (unsigned int i : changed)
		update2DExtractor(i);
	if (fieldChanged)
		updateSingleEntry();
	m_chartModel->endChangeModel();
}


void Mapper::update2DExtractor(unsigned int index) {
	Q_ASSERT(index < m_2DExtractors.size());
	const int i = static_cast<int>(index);
	m_chartModel->beginChangeSeries(i, i);
	updateEntry(m_2DExtractors[index]);
	m_chartModel->endChangeSeries();
}


void Mapper::updateSingleEntry() {
	const int last = std::max(0, static_cast<int>(m_chartModel->seriesCount()) - 1);
	m_chartModel->beginChangeSeries(0, last);
	updateEntry(m_3DExtractor);
	m_chartModel->endChangeSeries();
}


void Mapper::applyAxisUnits() {
	if (!m_chartModel)
		return;
	setTargetUnitsFromAxes();
	m_dataPending = false;
	updateAllEntries();
}


void Mapper::setTargetUnitsFromAxes() {
	if (isSeriesChart()) {
		for (unsigned int i = 0; i < m_2DExtractors.size(); ++i)
			setTargetUnitsFromAxes(m_2DExtractors[i], onLeftAxis(i));
	}
	else if (m_3DExtractor.m_extractor) {
		setTargetUnitsFromAxes(m_3DExtractor, true);
	}
}


void Mapper::updateAllEntries() {
	m_chartModel->beginChangeModel();
	if (isSeriesChart()) {
		for (unsigned int i = 0; i < m_2DExtractors.size(); ++i)
			update2DExtractor(i);
	}
	else if (m_3DExtractor.m_extractor) {
		updateSingleEntry();
	}
	m_chartModel->endChangeModel();
}


void Mapper::onSeriesViewChanged(int start, int end, int role) {
	emit seriesViewChanged(start, end, role);
}


Mapper::ExtractorEntry Mapper::createEntry(const std::vector<DataSet> & dataSets, const std::string & modelType,
										   const std::string & modelParameter, const ManipulatorList & manipulators) const
{
	FUNCID(Mapper::createNewMapper);
	ExtractorEntry entry;
	if (dataSets.size() == 1 && modelType.empty()) {
		entry.m_dataIOs.push_back(m_dataManager.container(dataSets[0].m_fileName));
		DATAIO::DataIO * dataIO = entry.m_dataIOs[0].get();
		entry.m_dataFormat = dataIO->dataFormat();
		if (entry.m_dataFormat >= DATAIO::DataIO::NUM_DF)
			throw ZEB::Exception("Invalid data format type", FUNC_ID);
		entry.m_extractor = createExtractor(dataIO, entry.m_dataFormat, dataSets[0].m_cutType, dataSets[0].m_column);
		for (const std::pair<unsigned int, unsigned int> & cut : dataSets[0].m_cutIndices) {
			// a time point the user picked stays picked, even while a rerun has not reached it yet
			if (cut.first == EM::CD_Time)
				entry.m_extractor->setTimeCutIndex(cut.second, cut.second != EM::ExtractorBase::LAST_INDEX, false);
			else
				entry.m_extractor->setCutIndex(cut.first, cut.second, false);
		}
		// the columns of one reference file would all be named after the file
		const std::string dataSet = referenceDataSetName(entry);
		entry.m_title = dataSet.empty() ? QString(DEFAULT_SERIES_TITLE) : QString::fromStdString(dataSet);
	}
	else if (dataSets.size() == 2 && !modelType.empty()) {
		// a data set of a reference collection is one of its columns, any other the file's single value
		std::uint32_t columns[2] = { EM::ModelTwo2DBase::SINGLE_VALUE, EM::ModelTwo2DBase::SINGLE_VALUE };
		for (std::size_t i = 0; i < 2; ++i) {
			entry.m_dataIOs.push_back(m_dataManager.container(dataSets[i].m_fileName));
			const DATAIO::DataIO & dataIO = *entry.m_dataIOs.back();
			if (dataIO.dataFormat() != DATAIO::DataIO::DF_2D)
				throw ZEB::Exception("Invalid data format type", FUNC_ID);
			if (dataIO.type() == DATAIO::DataIO::T_REFERENCE) {
				checkReferenceColumn(dataIO, dataSets[i].m_column, FUNC_ID);
				columns[i] = dataSets[i].m_column;
			}
		}
		entry.m_dataFormat = DATAIO::DataIO::DF_2D;
		std::unique_ptr<EM::ModelTwo2DBase> model = createModel(modelType);
		model->setFromParameter(modelParameter);
		entry.m_title = defaultModelTitle(*model);
		entry.m_extractor = EM::ExtractorFactory::createExtractor(entry.m_dataIOs[0].get(), columns[0],
			entry.m_dataIOs[1].get(), columns[1], std::move(model));
	}
	else {
		throw ZEB::Exception("Invalid data format type", FUNC_ID);
	}
	for (const std::pair<std::string, std::string> & m : manipulators) {
		std::unique_ptr<EM::ManipulatorBase> manipulator = createManipulator(m.first);
		manipulator->setFromParameter(m.second);
		entry.m_extractor->addManipulator(std::move(manipulator));
	}
	entry.m_revisions.assign(entry.m_dataIOs.size(), 0);
	return entry;
}


void Mapper::appendEntry(ExtractorEntry entry, MapperType planeKind) {
	FUNCID(Mapper::appendEntry);
	const EM::ExtractorBase::OutputKind kind = entry.m_extractor->outputKind();
	if (m_type == MT_Empty && planeKind != MT_Empty) {
		const EM::Extractor2DFromTwo2D * twoFiles = dynamic_cast<const EM::Extractor2DFromTwo2D *>(entry.m_extractor.get());
		if (twoFiles == nullptr || std::string(twoFiles->model().typeKeyword()) != PLANE_MODEL_TYPES[planeKind])
			throw ZEB::Exception(ZEB::MessageFormat("Chart type '%1' needs one extractor of the model '%2'.")
								 .arg(CHART_TYPE_KEYWORDS[planeKind]).arg(PLANE_MODEL_TYPES[planeKind]), FUNC_ID);
		m_type = planeKind;
		if (planeKind == MT_Isopleth)
			m_chartModel.reset(new SeriesIsoplethExtractorModel(this));
		else
			m_chartModel.reset(new SeriesWTAExtractorModel(this));
		connect(m_chartModel.get(), &SCI::AbstractChartModel::seriesViewChanged, this, &Mapper::onSeriesViewChanged);
		m_3DExtractor = std::move(entry);
		return;
	}
	if (m_type == MT_Bar && !m_chartModel) {
		Q_ASSERT(kind == EM::ExtractorBase::OK_2D);
		m_chartModel.reset(new SeriesBarExtractorModel(this));
		connect(m_chartModel.get(), &SCI::AbstractChartModel::seriesViewChanged, this, &Mapper::onSeriesViewChanged);
		m_2DExtractors.push_back(std::move(entry));
		return;
	}
	if (m_type == MT_Empty) {
		switch (kind) {
			case EM::ExtractorBase::OK_2D :
				m_type = MT_2D;
				m_chartModel.reset(new SeriesLineExtractorModel(this));
				break;
			case EM::ExtractorBase::OK_3D :
				m_type = MT_3D;
				m_chartModel.reset(new SeriesColorGridExtractorModel(this));
				break;
			case EM::ExtractorBase::OK_Vector :
				m_type = MT_Vector;
				m_chartModel.reset(new SeriesVectorFieldExtractorModel(this));
				break;
		}
		connect(m_chartModel.get(), &SCI::AbstractChartModel::seriesViewChanged, this, &Mapper::onSeriesViewChanged);
		if (kind == EM::ExtractorBase::OK_2D)
			m_2DExtractors.push_back(std::move(entry));
		else
			m_3DExtractor = std::move(entry);
		return;
	}
	Q_ASSERT(isSeriesChart() && kind == EM::ExtractorBase::OK_2D);
	const int index = static_cast<int>(m_2DExtractors.size());
	m_chartModel->beginInsertSeries(index, index);
	m_2DExtractors.push_back(std::move(entry));
	m_chartModel->endInsertSeries();
}


void Mapper::setupNewChart() {
	CM & model = *m_chartModel;
	const ExtractorEntry & entry = isSeriesChart() ? m_2DExtractors.front() : m_3DExtractor;
	const EM::ExtractorBase & extractor = *entry.m_extractor;
	model.setChartData(m_name, SCI::AbstractChartModel::TitleText);
	if (isPlaneChart()) {
		const EM::ModelTwo2DBase & planeModel = static_cast<const EM::Extractor2DFromTwo2D &>(extractor).model();
		setAxisUnit(model, CM::BottomAxis, planeModel.temperatureUnit());
		setAxisUnit(model, CM::LeftAxis, planeModel.humidityUnit());
	}
	else if (m_type == MT_Bar) {
		SeriesBarExtractorModel & barModel = static_cast<SeriesBarExtractorModel &>(model);
		setAxisUnit(model, CM::BottomAxis, extractor.targetXUnit());
		setAxisUnit(model, CM::LeftAxis, barModel.dataUnit(entry));
		// the bars are labelled with their periods
		model.setAxisData(QString(), CM::BottomAxis, CM::AxisTitleText);
		model.setAxisData(QString(DEFAULT_AXIS_TITLE), CM::LeftAxis, CM::AxisTitleText);
		barModel.initSeries(0);
		return;
	}
	else if (m_type == MT_2D) {
		setAxisUnit(model, CM::BottomAxis, extractor.targetXUnit());
		setAxisUnit(model, CM::LeftAxis, extractor.targetValueUnit());
	}
	else {
		setAxisUnit(model, CM::BottomAxis, extractor.targetXUnit());
		setAxisUnit(model, CM::LeftAxis, extractor.targetYUnit());
		setAxisUnit(model, CM::RightAxis, extractor.targetValueUnit());
	}
	for (int a = 0; a < CM::NUM_AXES; ++a)
		model.setAxisData(QString(DEFAULT_AXIS_TITLE), a, CM::AxisTitleText);
	if (m_type == MT_2D)
		static_cast<SeriesLineExtractorModel &>(model).initSeries(0, true);
	else if (isPlaneChart())
		static_cast<SeriesClimatePlaneModel &>(model).initSeries();
}


void Mapper::setTargetUnitsFromAxes(ExtractorEntry & entry, bool leftAxis) const {
	// the model of a temperature and humidity plane computes in its own units, its chart model converts
	if (isPlaneChart())
		return;
	EM::ExtractorBase & extractor = *entry.m_extractor;
	const ZEB::Unit x = axisUnit(*m_chartModel, CM::BottomAxis);
	if (x.id() != 0)
		extractor.setTargetXUnit(x);
	if (extractor.outputKind() == EM::ExtractorBase::OK_2D) {
		const ZEB::Unit value = m_type == MT_Bar ? static_cast<const SeriesBarExtractorModel &>(*m_chartModel).targetValueUnit()
												 : axisUnit(*m_chartModel, leftAxis ? CM::LeftAxis : CM::RightAxis);
		if (value.id() != 0)
			extractor.setTargetValueUnit(value);
	}
	else {
		const ZEB::Unit y = axisUnit(*m_chartModel, CM::LeftAxis);
		if (y.id() != 0)
			extractor.setTargetYUnit(y);
		const ZEB::Unit value = axisUnit(*m_chartModel, CM::RightAxis);
		if (value.id() != 0)
			extractor.setTargetValueUnit(value);
	}
}


void Mapper::updateEntry(ExtractorEntry & entry) const {
	entry.m_extractor->update();
	for (std::size_t i = 0; i < entry.m_dataIOs.size(); ++i)
		entry.m_revisions[i] = m_dataManager.revision(entry.m_dataIOs[i].get());
}


bool Mapper::refreshEntry(ExtractorEntry & entry, DATAIO::DataIO::RefreshMode mode) const {
	FUNCID(Mapper::refresh);
	bool changed = false;
	for (std::size_t i = 0; i < entry.m_dataIOs.size(); ++i) {
		DATAIO::DataIO * dataIO = entry.m_dataIOs[i].get();
		try {
			m_dataManager.refresh(dataIO, mode);
		}
		catch (ZEB::Exception & ex) {
			ex.reportAllAsErrors();
			ZEB::reportError(ZEB::MessageFormat("Cannot refresh data file '%1', the chart keeps its data.")
							 .arg(dataIO->filename()).str(), FUNC_ID);
		}
		if (m_dataManager.revision(dataIO) != entry.m_revisions[i])
			changed = true;
	}
	return changed;
}

} // namespace OVP
