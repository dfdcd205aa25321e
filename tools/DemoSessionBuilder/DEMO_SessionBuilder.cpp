#include "DEMO_SessionBuilder.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <DATAIO_DataIO.h>

#include <EM_ExtractorBase.h>

#include <OVP_DataManager.h>
#include <OVP_ProjectHandler.h>
#include <OVP_SplitLayout.h>

#include <Sci_AbstractColorGridSeriesModel.h>
#include <Sci_AbstractLineSeriesModel.h>
#include <Sci_AbstractVectorFieldSeriesModel.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_UnitList.h>

#include "DEMO_ChartStyle.h"

namespace DEMO {

namespace {

typedef SCI::AbstractCartesianChartModel CM;
typedef SCI::AbstractLineSeriesModel LM;

const char * const CLIMATE = "climate.s6b";
const char * const WALL_TEMPERATURE = "wall_temperature.s6b";
const char * const WALL_INTERFACE_TEMPERATURE = "wall_interface_temperature.s6b";
const char * const WALL_INTERFACE_RELHUM = "wall_interface_relhum.s6b";
const char * const CORNER_TEMPERATURE = "corner_temperature.s6b";
const char * const CORNER_HEATFLUX = "corner_heatflux.s6b";
const char * const CORNER_SURFACE_TEMPERATURE = "corner_surface_temperature.s6b";
const char * const CORNER_SURFACE_RELHUM = "corner_surface_relhum.s6b";

/*! Columns of the climate file. */
const unsigned int OUTDOOR_TEMPERATURE_COLUMN = 0;
const unsigned int OUTDOOR_RELHUM_COLUMN = 1;

/*! Hours of January, the period of the climate chart. */
const double JANUARY_HOURS = 31*24;

/*! Axis ranges of the corner charts in cm: the whole L (legs of 1 m). The axes are proportional,
	so the chart widens the shorter range until x and y have the same scale, on screen and in an
	export of any size.
*/
const double CORNER_X_MIN = 0;
const double CORNER_X_MAX = 100;
const double CORNER_Y_MIN = 0;
const double CORNER_Y_MAX = 100;

LM & lineModel(OVP::Mapper & mapper) {
	return static_cast<LM &>(*mapper.chartModel());
}

SCI::AbstractColorGridSeriesModel & colorGridModel(OVP::Mapper & mapper) {
	return static_cast<SCI::AbstractColorGridSeriesModel &>(*mapper.chartModel());
}

SCI::AbstractVectorFieldSeriesModel & vectorFieldModel(OVP::Mapper & mapper) {
	return static_cast<SCI::AbstractVectorFieldSeriesModel &>(*mapper.chartModel());
}

} // namespace


SessionBuilder::SessionBuilder(const QString & dataDir) :
	m_dataDir(QDir(dataDir).absolutePath())
{
}


void SessionBuilder::build(OVP::ProjectHandler & handler) {
	FUNCID(SessionBuilder::build);
	try {
		handler.newProject();
		m_dataManager = &handler.dataManager();
		handler.addDirectory(m_dataDir);
		m_startYear = m_dataManager->container(file(CLIMATE))->startYear();
		m_coldTime = findColdTime();
		handler.addMapper(outdoorClimate());
		handler.addMapper(wallProfile());
		handler.addMapper(wallOverTime());
		handler.addMapper(cornerTemperature());
		handler.addMapper(cornerHeatFlux());
		handler.addMapper(mouldIndex());
		handler.addMapper(woodDecay());
		handler.setSplitLayout(twoByTwo(0, 2, 3, 5));
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Cannot build the demo session from '%1'.")
							 .arg(m_dataDir.toStdString()), FUNC_ID);
	}
}


QString SessionBuilder::file(const char * name) const {
	FUNCID(SessionBuilder::file);
	const QString path = QDir(m_dataDir).filePath(name);
	if (!QFileInfo::exists(path))
		throw ZEB::Exception(ZEB::MessageFormat("Missing data file '%1'.").arg(path.toStdString()), FUNC_ID);
	return path;
}


std::unique_ptr<OVP::Mapper> SessionBuilder::newMapper(const char * fileName, EM::CutType cutType,
													   unsigned int column) const
{
	OVP::Mapper::DataSet dataSet;
	dataSet.m_fileName = file(fileName);
	dataSet.m_cutType = cutType;
	dataSet.m_column = column;
	return OVP::Mapper::createNewMapper(*m_dataManager, { dataSet });
}


std::unique_ptr<OVP::Mapper> SessionBuilder::newModelMapper(const char * temperatureFile, const char * humidityFile,
															const char * modelType) const
{
	OVP::Mapper::DataSet temperature;
	temperature.m_fileName = file(temperatureFile);
	OVP::Mapper::DataSet humidity;
	humidity.m_fileName = file(humidityFile);
	return OVP::Mapper::createNewMapper(*m_dataManager, { temperature, humidity }, modelType);
}


double SessionBuilder::findColdTime() const {
	FUNCID(SessionBuilder::findColdTime);
	const std::shared_ptr<DATAIO::DataIO> field = m_dataManager->container(file(CORNER_TEMPERATURE));
	const std::shared_ptr<DATAIO::DataIO> surface = m_dataManager->container(file(CORNER_SURFACE_TEMPERATURE));
	if (field->timeUnit() != "h" || surface->timeUnit() != "h")
		throw ZEB::Exception("Expected the corner outputs in hours.", FUNC_ID);
	const std::vector<double> & surfaceTimes = surface->timePoints();
	double coldest = std::numeric_limits<double>::max();
	double coldTime = -1;
	// both files count whole hours, so a record time is found exactly among the hourly values
	for (double t : field->timePoints()) {
		const auto it = std::lower_bound(surfaceTimes.begin(), surfaceTimes.end(), t);
		if (it == surfaceTimes.end() || *it != t)
			continue;
		const double value = surface->data(static_cast<unsigned int>(it - surfaceTimes.begin()))[0];
		if (value < coldest) {
			coldest = value;
			coldTime = t;
		}
	}
	if (coldTime < 0)
		throw ZEB::Exception("The corner temperature field and the corner surface temperature have no time point "
							 "in common.", FUNC_ID);
	return coldTime;
}


void SessionBuilder::cutAtColdTime(OVP::Mapper & mapper) const {
	const OVP::Mapper::ExtractorEntry & entry = mapper.type() == OVP::Mapper::MT_2D ? mapper.extractors2D().front()
																				  : mapper.extractor3D();
	EM::ExtractorBase & extractor = *entry.m_extractor;
	double time = m_coldTime;
	ZEB::UnitList::instance().convert(ZEB::Unit("h"), ZEB::Unit(entry.m_dataIOs.front()->timeUnit()), time);
	extractor.setTimeIndexLocked(true);
	extractor.setCutValue(EM::CD_Time, time);
	mapper.applyAxisUnits();
}


QString SessionBuilder::coldTimeText() const {
	const QDateTime start(QDate(m_startYear, 1, 1), QTime(0, 0), Qt::UTC);
	return start.addSecs(static_cast<qint64>(std::lround(m_coldTime*3600))).toString("d MMMM yyyy, hh:mm");
}


std::unique_ptr<OVP::Mapper> SessionBuilder::outdoorClimate() const {
	FUNCID(SessionBuilder::outdoorClimate);
	std::unique_ptr<OVP::Mapper> mapper = newMapper(CLIMATE, EM::CT_NoCut, OUTDOOR_TEMPERATURE_COLUMN);
	OVP::Mapper::DataSet humidity;
	humidity.m_fileName = file(CLIMATE);
	humidity.m_column = OUTDOOR_RELHUM_COLUMN;
	mapper->addExtractor({ humidity });
	mapper->setName("Outdoor climate");

	LM & model = lineModel(*mapper);
	ChartStyle::setChart(model, "Outdoor climate in January " + QString::number(m_startYear));
	// the columns of a climate file share one unit ("-"), so the axis titles name the units
	ChartStyle::setAxis(model, CM::BottomAxis, "Date");
	ChartStyle::setAxis(model, CM::LeftAxis, "Temperature [C]");
	ChartStyle::setAxis(model, CM::RightAxis, "Relative humidity [%]");
	ChartStyle::setDateAxis(model);
	ChartStyle::setAxisRange(model, CM::BottomAxis, 0, JANUARY_HOURS);
	// temperatures in the lower, humidities in the upper part, with the grid lines of both axes aligned
	ChartStyle::setAxisRange(model, CM::LeftAxis, -10, 20);
	ChartStyle::setAxisRange(model, CM::RightAxis, 40, 100);
	ChartStyle::setLine(model, 0, "Outdoor air temperature", ChartStyle::TEMPERATURE_COLOR, 1);
	ChartStyle::setLine(model, 1, "Outdoor relative humidity", ChartStyle::HUMIDITY_COLOR, 1);
	if (!model.setSeriesData(false, 1, LM::SeriesLeftAxis))
		throw ZEB::Exception("Cannot move the humidity to the right axis.", FUNC_ID);
	return mapper;
}


std::unique_ptr<OVP::Mapper> SessionBuilder::wallProfile() const {
	std::unique_ptr<OVP::Mapper> mapper = newMapper(WALL_TEMPERATURE, EM::CT_TimeCut);
	mapper->setName("Wall temperature profile");
	cutAtColdTime(*mapper);

	LM & model = lineModel(*mapper);
	ChartStyle::setChart(model, "Temperature across the brick wall with interior insulation");
	ChartStyle::setAxis(model, CM::BottomAxis, "Depth from the outer surface [$unit]", "cm");
	ChartStyle::setAxis(model, CM::LeftAxis, "Temperature [$unit]", "C");
	ChartStyle::setLine(model, 0, coldTimeText(), ChartStyle::TEMPERATURE_COLOR, 2);
	return mapper;
}


std::unique_ptr<OVP::Mapper> SessionBuilder::wallOverTime() const {
	std::unique_ptr<OVP::Mapper> mapper = newMapper(WALL_TEMPERATURE, EM::CT_NoCut);
	mapper->setName("Wall temperature over time");

	SCI::AbstractColorGridSeriesModel & model = colorGridModel(*mapper);
	ChartStyle::setChart(model, "Temperature in the wall over two years");
	ChartStyle::setAxis(model, CM::BottomAxis, "Date");
	ChartStyle::setAxis(model, CM::LeftAxis, "Depth from the outer surface [$unit]", "cm");
	ChartStyle::setAxis(model, CM::RightAxis, "Temperature [$unit]", "C");
	ChartStyle::setDateAxis(model);
	ChartStyle::setColorGrid(model, ChartStyle::temperatureColorMap(), -10, 30, 0, false);
	return mapper;
}


std::unique_ptr<OVP::Mapper> SessionBuilder::cornerTemperature() const {
	std::unique_ptr<OVP::Mapper> mapper = newMapper(CORNER_TEMPERATURE, EM::CT_TimeCut);
	mapper->setName("Corner temperature field");
	cutAtColdTime(*mapper);

	SCI::AbstractColorGridSeriesModel & model = colorGridModel(*mapper);
	ChartStyle::setChart(model, "Temperature in the wall corner on " + coldTimeText());
	ChartStyle::setAxis(model, CM::BottomAxis, "x [$unit]", "cm");
	ChartStyle::setAxis(model, CM::LeftAxis, "y [$unit]", "cm");
	ChartStyle::setAxis(model, CM::RightAxis, "Temperature [$unit]", "C");
	ChartStyle::setAxisRange(model, CM::BottomAxis, CORNER_X_MIN, CORNER_X_MAX);
	ChartStyle::setAxisRange(model, CM::LeftAxis, CORNER_Y_MIN, CORNER_Y_MAX);
	ChartStyle::setMajorTicks(model, CM::BottomAxis, 10);
	ChartStyle::setProportional(model);
	ChartStyle::setColorGrid(model, ChartStyle::temperatureColorMap(), -10, 20, 2, true);
	return mapper;
}


std::unique_ptr<OVP::Mapper> SessionBuilder::cornerHeatFlux() const {
	std::unique_ptr<OVP::Mapper> mapper = newMapper(CORNER_HEATFLUX, EM::CT_TimeCut);
	mapper->setName("Corner heat flux");
	cutAtColdTime(*mapper);

	SCI::AbstractVectorFieldSeriesModel & model = vectorFieldModel(*mapper);
	ChartStyle::setChart(model, "Heat flux in the wall corner on " + coldTimeText());
	ChartStyle::setAxis(model, CM::BottomAxis, "x [$unit]", "cm");
	ChartStyle::setAxis(model, CM::LeftAxis, "y [$unit]", "cm");
	ChartStyle::setAxis(model, CM::RightAxis, "Heat flux density [$unit]", "W/m2");
	ChartStyle::setAxisRange(model, CM::BottomAxis, CORNER_X_MIN, CORNER_X_MAX);
	ChartStyle::setAxisRange(model, CM::LeftAxis, CORNER_Y_MIN, CORNER_Y_MAX);
	ChartStyle::setMajorTicks(model, CM::BottomAxis, 10);
	ChartStyle::setProportional(model);
	ChartStyle::setVectorField(model, ChartStyle::magnitudeColorMap());
	return mapper;
}


std::unique_ptr<OVP::Mapper> SessionBuilder::mouldIndex() const {
	// the model's default parameters: very sensitive material (pine sapwood), slow decline
	std::unique_ptr<OVP::Mapper> mapper = newModelMapper(CORNER_SURFACE_TEMPERATURE, CORNER_SURFACE_RELHUM,
														 "VTTMouldModel");
	mapper->setName("Mould index in the corner");

	LM & model = lineModel(*mapper);
	ChartStyle::setChart(model, "Mould growth at the inner surface of the wall corner");
	ChartStyle::setAxis(model, CM::BottomAxis, "Date");
	ChartStyle::setAxis(model, CM::LeftAxis, "VTT mould index [-]");
	ChartStyle::setDateAxis(model);
	ChartStyle::setLine(model, 0, "VTT mould index, very sensitive material", ChartStyle::MOULD_COLOR, 2);
	return mapper;
}


std::unique_ptr<OVP::Mapper> SessionBuilder::woodDecay() const {
	// the model's default parameters: mass loss of pine sapwood once the decay is activated
	std::unique_ptr<OVP::Mapper> mapper = newModelMapper(WALL_INTERFACE_TEMPERATURE, WALL_INTERFACE_RELHUM,
														 "VTTWoodDegradation");
	mapper->setName("Wood decay behind the insulation");

	LM & model = lineModel(*mapper);
	ChartStyle::setChart(model, "Decay of a wooden beam head behind the interior insulation");
	ChartStyle::setAxis(model, CM::BottomAxis, "Date");
	ChartStyle::setAxis(model, CM::LeftAxis, "Mass loss [%]");
	ChartStyle::setDateAxis(model);
	ChartStyle::setLine(model, 0, "Mass loss of pine sapwood, VTT decay model", ChartStyle::DECAY_COLOR, 2);
	return mapper;
}


OVP::SplitLayout SessionBuilder::twoByTwo(int topLeft, int topRight, int bottomLeft, int bottomRight) {
	// a split (two rows, on top of each other) of two splits (two views side by side)
	const int sideBySide = Qt::Horizontal;
	const int onTop = Qt::Vertical;
	OVP::SplitLayout layout;
	auto add = [&layout](int id, int parent, int mapperIndex, int orientation) {
		OVP::SplitLayout::Widget w;
		w.m_id = id;
		w.m_parent = parent;
		w.m_mapperIndex = mapperIndex;
		w.m_orientation = orientation;
		layout.m_widgets.append(w);
	};
	add(0, -1, -1, onTop);
	add(1, 0, -1, sideBySide);
	add(2, 0, -1, sideBySide);
	add(3, 1, topLeft, sideBySide);
	add(4, 1, topRight, sideBySide);
	add(5, 2, bottomLeft, sideBySide);
	add(6, 2, bottomRight, sideBySide);
	layout.m_focusedWidget = 3;
	return layout;
}

} // namespace DEMO
