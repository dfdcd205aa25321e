#include "Sci_PropertyRoleTable.h"

#include <limits>

#include <qwt_plot_curve.h>
#include <qwt_symbol.h>

#include "Sci_AbstractBarSeriesModel.h"
#include "Sci_AbstractColorGridSeriesModel.h"
#include "Sci_AbstractLineSeriesModel.h"
#include "Sci_AbstractVectorFieldSeriesModel.h"
#include "Sci_ChartProperties.h"
#include "Sci_ColorGridSeries.h"
#include "Sci_PlotCurve.h"

namespace SCI {

namespace {

typedef PropertyRoleTable::Entry Entry;
typedef AbstractChartModel CM;
typedef AbstractCartesianChartModel AM;
typedef AbstractLineSeriesModel LM;
typedef AbstractColorGridSeriesModel GM;
typedef AbstractVectorFieldSeriesModel VM;
typedef AbstractBarSeriesModel BM;

const double HUGE_VALUE = std::numeric_limits<double>::max();

/*! An entry of a kind without range or choices. */
Entry plain(int role, const char * name, const char * group, PropertyRoleTable::EditorKind kind, int partOf = -1) {
	Entry e;
	e.m_role = role;
	e.m_name = name;
	e.m_group = group;
	e.m_kind = kind;
	e.m_partOf = partOf;
	return e;
}

Entry boolean(int role, const char * name, const char * group) {
	return plain(role, name, group, PropertyRoleTable::BoolEditor);
}

/*! An entry of a number or size editor. */
Entry ranged(int role, const char * name, const char * group, PropertyRoleTable::EditorKind kind, double minimum,
			 double maximum, int decimals = 0, const char * specialValueText = nullptr, int partOf = -1)
{
	Entry e = plain(role, name, group, kind, partOf);
	e.m_minimum = minimum;
	e.m_maximum = maximum;
	e.m_decimals = decimals;
	e.m_specialValueText = specialValueText;
	return e;
}

Entry integer(int role, const char * name, const char * group, int minimum, int maximum,
			  const char * specialValueText = nullptr, int partOf = -1)
{
	return ranged(role, name, group, PropertyRoleTable::IntEditor, minimum, maximum, 0, specialValueText, partOf);
}

Entry number(int role, const char * name, const char * group, double minimum, double maximum, int decimals,
			 const char * specialValueText = nullptr, int partOf = -1)
{
	return ranged(role, name, group, PropertyRoleTable::DoubleEditor, minimum, maximum, decimals, specialValueText,
				  partOf);
}

Entry choice(int role, const char * name, const char * group, std::vector<PropertyRoleTable::Choice> choices) {
	Entry e = plain(role, name, group, PropertyRoleTable::EnumEditor);
	e.m_choices = std::move(choices);
	return e;
}

} // namespace


QString PropertyRoleTable::Entry::name() const {
	return tr(m_name);
}


QString PropertyRoleTable::Entry::group() const {
	return tr(m_group);
}


QString PropertyRoleTable::Entry::choiceText(int value) const {
	for (const Choice & c : m_choices)
		if (c.m_value == value)
			return tr(c.m_text);
	return QString();
}


const std::vector<PropertyRoleTable::Entry> & PropertyRoleTable::editableRoles(Target target) {
	Q_ASSERT(target >= 0 && target < NUM_TARGETS);
	static const std::vector<Entry> tables[NUM_TARGETS] = {
		build(ChartTarget), build(AxisTarget), build(LineSeriesTarget), build(ColorGridTarget),
		build(VectorFieldTarget), build(BarSeriesTarget)
	};
	return tables[target];
}


const std::vector<int> & PropertyRoleTable::notEditableRoles(Target target) {
	Q_ASSERT(target >= 0 && target < NUM_TARGETS);
	static const std::vector<int> tables[NUM_TARGETS] = {
		// the title alias; the curve thinning flag and the time position marked are set by the
		// program and not stored with the chart
		{ CM::Title, CM::DataReduction, CM::CurrentTimePosition },
		// the title as displayed, with "$unit" replaced
		{ AM::AxisTitle },
		// the title alias
		{ LM::SeriesTitle },
		// data of the grid, answered by the derived model
		{ GM::ColorGridXGrid, GM::ColorGridYGrid, GM::ColorGridValues, GM::ColorGridXUnit, GM::ColorGridYUnit,
		  GM::ColorGridValueUnit, GM::ColorGridValueSize, GM::ColorGridDataMinimum, GM::ColorGridDataMaximum,
		  GM::ColorGridValueRange },
		// data of the field, answered by the derived model
		{ VM::VectorFieldXGrid, VM::VectorFieldYGrid, VM::VectorFieldXComponents, VM::VectorFieldYComponents,
		  VM::VectorFieldXUnit, VM::VectorFieldYUnit, VM::VectorFieldValueUnit, VM::VectorFieldMagnitudeRange },
		{ }
	};
	return tables[target];
}


const PropertyRoleTable::Entry * PropertyRoleTable::entry(Target target, int role) {
	for (const Entry & e : editableRoles(target))
		if (e.m_role == role)
			return &e;
	return nullptr;
}


int PropertyRoleTable::firstRole(Target target) {
	// line and bar roles start at 1, as the series title roles do in the files
	return target == LineSeriesTarget || target == BarSeriesTarget ? 1 : 0;
}


int PropertyRoleTable::roleEnd(Target target) {
	switch (target) {
		case ChartTarget :			return CM::NUM_CDR;
		case AxisTarget :			return AM::NUM_AXIS_ROLES;
		case LineSeriesTarget :		return LM::NUM_SDR;
		case ColorGridTarget :		return GM::NUM_CGR;
		case VectorFieldTarget :	return VM::NUM_VFR;
		case BarSeriesTarget :		return BM::NUM_BSR;
		default :					return 0;
	}
}


PropertyRoleTable::Target PropertyRoleTable::seriesTarget(const AbstractChartModel & model) {
	if (dynamic_cast<const AbstractLineSeriesModel *>(&model) != nullptr)
		return LineSeriesTarget;
	if (dynamic_cast<const AbstractColorGridSeriesModel *>(&model) != nullptr)
		return ColorGridTarget;
	if (dynamic_cast<const AbstractVectorFieldSeriesModel *>(&model) != nullptr)
		return VectorFieldTarget;
	if (dynamic_cast<const AbstractBarSeriesModel *>(&model) != nullptr)
		return BarSeriesTarget;
	return NUM_TARGETS;
}


QString PropertyRoleTable::axisName(int axisPosition) {
	switch (axisPosition) {
		case AM::BottomAxis :	return tr("x-axis");
		case AM::LeftAxis :		return tr("y-axis");
		case AM::RightAxis :	return tr("right y-axis");
		default :				return QString();
	}
}


std::vector<PropertyRoleTable::Entry> PropertyRoleTable::build(Target target) {
	switch (target) {
		case ChartTarget : return {
			plain(CM::TitleText, QT_TR_NOOP("title"), QT_TR_NOOP("Title"), StringEditor),
			plain(CM::TitleFont, QT_TR_NOOP("title font"), QT_TR_NOOP("Title"), FontEditor),
			boolean(CM::LegendVisible, QT_TR_NOOP("legend visible"), QT_TR_NOOP("Legend")),
			choice(CM::LegendPosition, QT_TR_NOOP("legend position"), QT_TR_NOOP("Legend"), {
				{ ChartProperties::LegendLeft, QT_TR_NOOP("left") },
				{ ChartProperties::LegendRight, QT_TR_NOOP("right") },
				{ ChartProperties::LegendBottom, QT_TR_NOOP("bottom") },
				{ ChartProperties::LegendTop, QT_TR_NOOP("top") },
				{ ChartProperties::LegendInside, QT_TR_NOOP("inside the chart") } }),
			// the corner of a legend inside the chart
			choice(CM::LegendAlignment, QT_TR_NOOP("legend corner"), QT_TR_NOOP("Legend"), {
				{ 0, QT_TR_NOOP("top left") }, { 1, QT_TR_NOOP("top right") },
				{ 2, QT_TR_NOOP("bottom left") }, { 3, QT_TR_NOOP("bottom right") } }),
			// the distance of a legend inside the chart from its corner, in pixels
			ranged(CM::LegendOffset, QT_TR_NOOP("legend offset"), QT_TR_NOOP("Legend"), SizeEditor, 0, 2000),
			boolean(CM::LegendHasFrame, QT_TR_NOOP("legend frame"), QT_TR_NOOP("Legend")),
			choice(CM::LegendIconStyle, QT_TR_NOOP("legend symbol"), QT_TR_NOOP("Legend"), {
				{ PlotCurve::IconLine, QT_TR_NOOP("line") }, { PlotCurve::IconBox, QT_TR_NOOP("box") } }),
			integer(CM::LegendIconWidth, QT_TR_NOOP("legend symbol width"), QT_TR_NOOP("Legend"), 1, 200),
			plain(CM::LegendBackgroundColor, QT_TR_NOOP("legend background colour"), QT_TR_NOOP("Legend"), ColorEditor),
			number(CM::LegendBackgroundTransparency, QT_TR_NOOP("legend background opacity"), QT_TR_NOOP("Legend"),
				   0, 1, 2),
			integer(CM::LegendMaxColumns, QT_TR_NOOP("legend columns"), QT_TR_NOOP("Legend"), 0, 100,
					QT_TR_NOOP("no limit")),
			integer(CM::LegendSpacing, QT_TR_NOOP("legend spacing"), QT_TR_NOOP("Legend"), 0, 200),
			plain(CM::LegendFont, QT_TR_NOOP("legend font"), QT_TR_NOOP("Legend"), FontEditor),
			boolean(CM::AxisY2TitleInverted, QT_TR_NOOP("right axis title turned"), QT_TR_NOOP("Axes")),
			boolean(CM::AxisScalesInside, QT_TR_NOOP("scales inside"), QT_TR_NOOP("Axes")),
			boolean(CM::ConstructionLinesVisible, QT_TR_NOOP("construction lines visible"),
					QT_TR_NOOP("Construction lines")),
			plain(CM::ConstructionLinesPen, QT_TR_NOOP("construction lines pen"), QT_TR_NOOP("Construction lines"),
				  PenEditor),
			boolean(CM::ShowCurrentTimePosition, QT_TR_NOOP("current time marked"), QT_TR_NOOP("Time position"))
		};
		case AxisTarget : return {
			boolean(AM::AxisEnabled, QT_TR_NOOP("visible"), QT_TR_NOOP("Scale")),
			plain(AM::AxisTitleText, QT_TR_NOOP("title"), QT_TR_NOOP("Title"), StringEditor),
			plain(AM::AxisTitleFont, QT_TR_NOOP("title font"), QT_TR_NOOP("Title"), FontEditor),
			integer(AM::AxisTitleSpacing, QT_TR_NOOP("title spacing"), QT_TR_NOOP("Title"), 0, 500),
			plain(AM::AxisUnit, QT_TR_NOOP("unit"), QT_TR_NOOP("Scale"), UnitEditor),
			boolean(AM::AxisAutoscale, QT_TR_NOOP("automatic scale"), QT_TR_NOOP("Scale")),
			number(AM::AxisMinimum, QT_TR_NOOP("minimum"), QT_TR_NOOP("Scale"), -HUGE_VALUE, HUGE_VALUE, 6),
			number(AM::AxisMaximum, QT_TR_NOOP("maximum"), QT_TR_NOOP("Scale"), -HUGE_VALUE, HUGE_VALUE, 6),
			boolean(AM::AxisLogarithmic, QT_TR_NOOP("logarithmic"), QT_TR_NOOP("Scale")),
			boolean(AM::AxisProportional, QT_TR_NOOP("same scale as the other axis"), QT_TR_NOOP("Scale")),
			integer(AM::AxisMaxMajorScale, QT_TR_NOOP("major ticks"), QT_TR_NOOP("Ticks"), 1, 100),
			integer(AM::AxisMaxMinorScale, QT_TR_NOOP("minor ticks per major step"), QT_TR_NOOP("Ticks"), 0, 100),
			plain(AM::AxisLabelFont, QT_TR_NOOP("label font"), QT_TR_NOOP("Labels"), FontEditor),
			choice(AM::AxisLabelHAlignment, QT_TR_NOOP("label horizontal alignment"), QT_TR_NOOP("Labels"), {
				{ 0, QT_TR_NOOP("left") }, { 2, QT_TR_NOOP("centre") }, { 1, QT_TR_NOOP("right") } }),
			choice(AM::AxisLabelVAlignment, QT_TR_NOOP("label vertical alignment"), QT_TR_NOOP("Labels"), {
				{ 0, QT_TR_NOOP("top") }, { 2, QT_TR_NOOP("centre") }, { 1, QT_TR_NOOP("bottom") } }),
			number(AM::AxisLabelRotation, QT_TR_NOOP("label rotation"), QT_TR_NOOP("Labels"), -360, 360, 1),
			integer(AM::AxisLabelSpacing, QT_TR_NOOP("label spacing"), QT_TR_NOOP("Labels"), 0, 500),
			boolean(AM::AxisGridVisible, QT_TR_NOOP("grid visible"), QT_TR_NOOP("Grid")),
			plain(AM::AxisGridPen, QT_TR_NOOP("grid pen"), QT_TR_NOOP("Grid"), PenEditor),
			// the width is exchanged as twice the pen width: 1 is a hairline of half a pixel
			number(AM::AxisGridPenWidth, QT_TR_NOOP("grid width"), QT_TR_NOOP("Grid"), 0, 40, 0, nullptr,
				   AM::AxisGridPen),
			plain(AM::AxisGridPenColor, QT_TR_NOOP("grid colour"), QT_TR_NOOP("Grid"), ColorEditor, AM::AxisGridPen),
			boolean(AM::AxisMinorGridVisible, QT_TR_NOOP("minor grid visible"), QT_TR_NOOP("Minor grid")),
			plain(AM::AxisMinorGridPen, QT_TR_NOOP("minor grid pen"), QT_TR_NOOP("Minor grid"), PenEditor),
			number(AM::AxisMinorGridPenWidth, QT_TR_NOOP("minor grid width"), QT_TR_NOOP("Minor grid"), 0, 40, 0,
				   nullptr, AM::AxisMinorGridPen),
			plain(AM::AxisMinorGridPenColor, QT_TR_NOOP("minor grid colour"), QT_TR_NOOP("Minor grid"), ColorEditor,
				  AM::AxisMinorGridPen),
			boolean(AM::AxisDateTimeEnabled, QT_TR_NOOP("dates as labels"), QT_TR_NOOP("Date and time")),
			plain(AM::AxisDateTimeZero, QT_TR_NOOP("date and time of zero"), QT_TR_NOOP("Date and time"),
				  DateTimeEditor),
			choice(AM::AxisDateTimeSpec, QT_TR_NOOP("time zone"), QT_TR_NOOP("Date and time"), {
				{ Qt::LocalTime, QT_TR_NOOP("local time") }, { Qt::UTC, QT_TR_NOOP("UTC") },
				{ Qt::OffsetFromUTC, QT_TR_NOOP("offset from UTC") }, { Qt::TimeZone, QT_TR_NOOP("named time zone") } }),
			plain(AM::AxisDateTimeFormats, QT_TR_NOOP("date formats"), QT_TR_NOOP("Date and time"), StringListEditor)
		};
		case LineSeriesTarget : return {
			plain(LM::SeriesTitleText, QT_TR_NOOP("title"), QT_TR_NOOP("Title"), StringEditor),
			boolean(LM::SeriesInLegend, QT_TR_NOOP("in legend"), QT_TR_NOOP("Title")),
			plain(LM::SeriesPen, QT_TR_NOOP("pen"), QT_TR_NOOP("Line"), PenEditor),
			integer(LM::SeriesPenWidth, QT_TR_NOOP("pen width"), QT_TR_NOOP("Line"), 0, 50, nullptr, LM::SeriesPen),
			plain(LM::SeriesPenColor, QT_TR_NOOP("pen colour"), QT_TR_NOOP("Line"), ColorEditor, LM::SeriesPen),
			choice(LM::SeriesLineStyle, QT_TR_NOOP("line style"), QT_TR_NOOP("Line"), {
				{ QwtPlotCurve::NoCurve, QT_TR_NOOP("no line") }, { QwtPlotCurve::Lines, QT_TR_NOOP("lines") },
				{ QwtPlotCurve::Sticks, QT_TR_NOOP("sticks") }, { QwtPlotCurve::Steps, QT_TR_NOOP("steps") },
				{ QwtPlotCurve::Dots, QT_TR_NOOP("dots") } }),
			boolean(LM::SeriesFitted, QT_TR_NOOP("smoothed"), QT_TR_NOOP("Line")),
			boolean(LM::SeriesInverted, QT_TR_NOOP("sign inverted"), QT_TR_NOOP("Line")),
			boolean(LM::SeriesLeftAxis, QT_TR_NOOP("on the left y-axis"), QT_TR_NOOP("Axis")),
			choice(LM::SeriesMarkerStyle, QT_TR_NOOP("marker"), QT_TR_NOOP("Markers"), {
				{ QwtSymbol::NoSymbol, QT_TR_NOOP("none") }, { QwtSymbol::Ellipse, QT_TR_NOOP("circle") },
				{ QwtSymbol::Rect, QT_TR_NOOP("square") }, { QwtSymbol::Diamond, QT_TR_NOOP("diamond") },
				{ QwtSymbol::Triangle, QT_TR_NOOP("triangle") }, { QwtSymbol::DTriangle, QT_TR_NOOP("triangle down") },
				{ QwtSymbol::UTriangle, QT_TR_NOOP("triangle up") }, { QwtSymbol::LTriangle, QT_TR_NOOP("triangle left") },
				{ QwtSymbol::RTriangle, QT_TR_NOOP("triangle right") }, { QwtSymbol::Cross, QT_TR_NOOP("cross") },
				{ QwtSymbol::XCross, QT_TR_NOOP("diagonal cross") }, { QwtSymbol::HLine, QT_TR_NOOP("horizontal line") },
				{ QwtSymbol::VLine, QT_TR_NOOP("vertical line") }, { QwtSymbol::Star1, QT_TR_NOOP("star") },
				{ QwtSymbol::Star2, QT_TR_NOOP("six-pointed star") }, { QwtSymbol::Hexagon, QT_TR_NOOP("hexagon") } }),
			integer(LM::SeriesMarkerSize, QT_TR_NOOP("marker size"), QT_TR_NOOP("Markers"), 1, 100),
			boolean(LM::SeriesMarkerFilled, QT_TR_NOOP("marker filled"), QT_TR_NOOP("Markers")),
			plain(LM::SeriesMarkerColor, QT_TR_NOOP("marker colour"), QT_TR_NOOP("Markers"), ColorEditor)
		};
		case ColorGridTarget : return {
			plain(GM::ColorGridColorMap, QT_TR_NOOP("colour map"), QT_TR_NOOP("Colours"), ColorMapEditor),
			choice(GM::ColorGridDisplayMode, QT_TR_NOOP("display"), QT_TR_NOOP("Colours"), {
				{ ColorGridSeries::DisplayColorImage, QT_TR_NOOP("colours") },
				{ ColorGridSeries::DisplayContoursOnly, QT_TR_NOOP("isolines only") } }),
			choice(GM::ColorGridInterpolationMode, QT_TR_NOOP("interpolation"), QT_TR_NOOP("Colours"), {
				{ ColorGridSeries::InterpolationNone, QT_TR_NOOP("none") },
				{ ColorGridSeries::InterpolationBilinear, QT_TR_NOOP("bilinear") } }),
			boolean(GM::ColorGridAutoScale, QT_TR_NOOP("automatic value range"), QT_TR_NOOP("Value range")),
			number(GM::ColorGridMinimumZ, QT_TR_NOOP("value minimum"), QT_TR_NOOP("Value range"), -HUGE_VALUE,
				   HUGE_VALUE, 6, QT_TR_NOOP("from the data")),
			number(GM::ColorGridMaximumZ, QT_TR_NOOP("value maximum"), QT_TR_NOOP("Value range"), -HUGE_VALUE,
				   HUGE_VALUE, 6, QT_TR_NOOP("from the data")),
			boolean(GM::ColorGridColorBarVisible, QT_TR_NOOP("colour bar visible"), QT_TR_NOOP("Colour bar")),
			number(GM::ColorGridContourInterval, QT_TR_NOOP("isoline step"), QT_TR_NOOP("Isolines"), 0, HUGE_VALUE, 6,
				   QT_TR_NOOP("no isolines")),
			boolean(GM::ColorGridContourIntervalColor, QT_TR_NOOP("isolines in colours"), QT_TR_NOOP("Isolines")),
			plain(GM::ColorGridContourPen, QT_TR_NOOP("isoline pen"), QT_TR_NOOP("Isolines"), PenEditor)
		};
		case VectorFieldTarget : return {
			plain(VM::VectorFieldColorMap, QT_TR_NOOP("colour map"), QT_TR_NOOP("Colours"), ColorMapEditor),
			boolean(VM::VectorFieldColoredArrowsEnabled, QT_TR_NOOP("arrow colours from the colour map"),
					QT_TR_NOOP("Colours")),
			plain(VM::VectorFieldUniformArrowColor, QT_TR_NOOP("arrow colour"), QT_TR_NOOP("Colours"), ColorEditor),
			boolean(VM::VectorFieldAutoScale, QT_TR_NOOP("automatic magnitude range"), QT_TR_NOOP("Value range")),
			number(VM::VectorFieldMinimumZ, QT_TR_NOOP("magnitude minimum"), QT_TR_NOOP("Value range"), 0, HUGE_VALUE,
				   6, QT_TR_NOOP("from the data")),
			number(VM::VectorFieldMaximumZ, QT_TR_NOOP("magnitude maximum"), QT_TR_NOOP("Value range"), 0, HUGE_VALUE,
				   6, QT_TR_NOOP("from the data")),
			boolean(VM::VectorFieldColorBar, QT_TR_NOOP("colour bar visible"), QT_TR_NOOP("Colour bar")),
			boolean(VM::VectorFieldRasterEnabled, QT_TR_NOOP("arrows on a raster"), QT_TR_NOOP("Arrows")),
			integer(VM::VectorFieldRasterSize, QT_TR_NOOP("raster size"), QT_TR_NOOP("Arrows"), 2, 500),
			choice(VM::VectorFieldIndicatorOrigin, QT_TR_NOOP("arrow position"), QT_TR_NOOP("Arrows"), {
				{ VectorFieldProperties::OriginTail, QT_TR_NOOP("starts at the point") },
				{ VectorFieldProperties::OriginCenter, QT_TR_NOOP("centred on the point") },
				{ VectorFieldProperties::OriginHead, QT_TR_NOOP("ends at the point") } }),
			boolean(VM::VectorFieldThinArrow, QT_TR_NOOP("thin arrows"), QT_TR_NOOP("Arrows")),
			number(VM::VectorFieldArrowScaleFactor, QT_TR_NOOP("arrow scale factor"), QT_TR_NOOP("Arrows"), 0, 1000, 3),
			number(VM::VectorFieldMinimumArrowLength, QT_TR_NOOP("shortest arrow"), QT_TR_NOOP("Arrows"), 0, 1000, 1),
			number(VM::VectorFieldMaximumArrowLength, QT_TR_NOOP("longest arrow"), QT_TR_NOOP("Arrows"), 0, 1000, 1)
		};
		case BarSeriesTarget : return {
			plain(BM::BarTitleText, QT_TR_NOOP("title"), QT_TR_NOOP("Title"), StringEditor),
			plain(BM::BarColor, QT_TR_NOOP("bar colour"), QT_TR_NOOP("Bars"), ColorEditor),
			plain(BM::BarFramePen, QT_TR_NOOP("frame pen"), QT_TR_NOOP("Bars"), PenEditor)
		};
		default : return {};
	}
}

} // namespace SCI
