#ifndef Sci_AbstractChartModelH
#define Sci_AbstractChartModelH

#include <functional>

#include <QObject>
#include <QPair>
#include <QVariant>
#include <QVector>

#include "Sci_ChartProperties.h"

class TiXmlElement;

namespace SCI {

/*! Base of all chart models. A chart model owns every display property of one chart and asks
	its derived, application-side model only for the data. Properties are read and written as
	QVariant values addressed by integer roles, so that property panels, the XML reader and
	writer and the plot share one access path; every change is announced by a signal that the
	plot listens to. This level holds the chart-wide properties (title, legend, construction
	lines), the change brackets of series insertion, removal and change, and the write-all flag
	of the XML writer.
*/
class AbstractChartModel : public QObject {
	Q_OBJECT
public:
	/*! Roles of the chart-wide properties; the numbers are part of the interface. */
	enum ChartDataRole {
		TitleText						= 0,	///< QString, "Title"
		TitleFont						= 1,	///< QFont
		Title							= 2,	///< QString, read-only alias of TitleText
		LegendVisible					= 3,	///< bool, true
		LegendPosition					= 4,	///< int, ChartProperties::LegendPosition, 2 (bottom)
		LegendAlignment					= 5,	///< int, 3
		LegendHasFrame					= 6,	///< bool, true
		LegendIconStyle					= 7,	///< int, 0
		LegendIconWidth					= 8,	///< int, 20 pixels
		LegendBackgroundColor			= 9,	///< QColor, white
		LegendBackgroundTransparency	= 10,	///< double, 1.0
		LegendOffset					= 11,	///< QSize, 10 x 10, for the legend inside the canvas
		LegendMaxColumns				= 12,	///< int, 0 = no limit
		LegendSpacing					= 13,	///< int, 8
		LegendFont						= 14,	///< QFont
		AxisY2TitleInverted				= 15,	///< bool, false
		AxisScalesInside				= 16,	///< bool, false
		ConstructionLinesVisible		= 17,	///< bool, true
		ConstructionLinesPen			= 18,	///< QPen, black, solid, width 1
		DataReduction					= 19,	///< bool, true; long curves are thinned; not in XML
		ShowCurrentTimePosition			= 20,	///< bool, false
		CurrentTimePosition				= 21,	///< double, 0; not in XML
		NUM_CDR
	};

	explicit AbstractChartModel(QObject * parent = nullptr);

	/*! Value of a chart property, an invalid QVariant for an unknown role. */
	virtual QVariant chartData(int role) const;
	/*! Stores a chart property and emits chartChanged(role). Returns false (and reports) for an
		unknown role, the read-only role Title and values that do not convert to the role's type;
		a value equal to the current one returns true without a signal.
	*/
	virtual bool setChartData(const QVariant & value, int role);

	/*! Value of a series property or series data, invalid QVariant for unknown roles. */
	virtual QVariant seriesData(int seriesIndex, int role) const = 0;
	/*! Stores a series property and announces it; false for unknown roles or bad values. */
	virtual bool setSeriesData(const QVariant & value, int seriesIndex, int role) = 0;

	/*! Reads the model's XML from the children of element (the parent given to writeXML()).
		This level reads ChartProperties between modelAboutToBeReset() and modelReset(); a
		missing element leaves the properties as they are. Throws ZEB::Exception.
	*/
	virtual void readXML(const TiXmlElement * element);
	/*! Writes the model's XML as children of parent; this level writes ChartProperties. */
	virtual void writeXML(TiXmlElement * parent) const;

	/*! Derived models call these around inserting series start..end into their data. */
	virtual void beginInsertSeries(int start, int end);
	virtual void endInsertSeries();
	/*! Derived models call these around removing series start..end from their data. */
	virtual void beginRemoveSeries(int start, int end);
	virtual void endRemoveSeries();
	/*! Brackets a change of the data of series first..last; brackets may nest, each end
		closes the innermost open bracket. */
	virtual void beginChangeSeries(int first, int last);
	virtual void endChangeSeries();
	/*! Brackets a change of everything; attached charts rebuild all series. */
	virtual void beginResetModel();
	virtual void endResetModel();
	/*! Brackets a batch of changes; the plot redraws once at the end. */
	virtual void beginChangeModel();
	virtual void endChangeModel();

	/*! Drops data that the model caches for the plot. This level only checks that no change
		bracket is open. */
	virtual void clearCachedData();

	/*! Number of series. */
	virtual unsigned int seriesCount() const = 0;

	/*! When set, the XML writers write every value, also those equal to their defaults. */
	void setWriteAll(bool writeAll) { m_writeAll = writeAll; }
	bool writeAll() const { return m_writeAll; }

	/*! All chart-wide properties at once. */
	const ChartProperties & chartProperties() const { return m_chartProperties; }

signals:
	void chartChanged(int chartDataRole);
	void axisChanged(int axisPosition, int role);
	/*! Display properties (pens, markers, colour maps, ...) of series start..end changed. */
	void seriesViewChanged(int start, int end, int role);
	void seriesAboutToBeInserted(int start, int end);
	void seriesInserted(int start, int end);
	void seriesAboutToBeRemoved(int start, int end);
	void seriesRemoved(int start, int end);
	void seriesAboutToBeChanged(int start, int end);
	/*! The data of series start..end changed. */
	void seriesChanged(int start, int end);
	void modelAboutToBeReset();
	void modelReset();
	void modelAboutToBeChanged();
	void modelChanged();

protected:
	/*! Each reports why a setter refuses a value and returns false, for the setter to return:
		an unknown role, a read-only role, a value that does not convert to the role's type and a
		series index out of range. functionId is the setter's function id.
	*/
	static bool rejectRole(int role, const char * functionId);
	static bool rejectReadOnlyRole(int role, const char * functionId);
	static bool rejectValue(const QVariant & value, int role, const char * functionId);
	static bool rejectSeriesIndex(int seriesIndex, const char * functionId);

	/*! Reads the child element name of element with read; a missing element is not read. A
		ZEB::Exception or standard exception of read is raised again as errorText, chained to
		it, from functionId.
	*/
	static void readChildXML(const TiXmlElement * element, const char * name,
							 const std::function<void(const TiXmlElement *)> & read,
							 const char * errorText, const char * functionId);
	/*! Reads the child element name of element into a record of display properties (a class
		with readXML(const TiXmlElement *)) through a copy, so that a corrupt element leaves the
		record untouched. Errors are raised as "Error reading chart settings." (readChildXML()).
	*/
	template <class Properties>
	static void readPropertiesXML(const TiXmlElement * element, const char * name, Properties & properties,
								  const char * functionId)
	{
		readChildXML(element, name, [&properties](const TiXmlElement * e) {
			Properties copy(properties);
			copy.readXML(e);
			properties = copy;
		}, "Error reading chart settings.", functionId);
	}

	/*! Series range of an open insertion bracket, (-1, -1) when none is open. */
	QPair<int, int> pendingInsertion() const { return m_insertion; }
	/*! Series range of an open removal bracket, (-1, -1) when none is open. */
	QPair<int, int> pendingRemoval() const { return m_removal; }

private:
	ChartProperties				m_chartProperties;
	/*! Write values equal to their defaults, too. */
	bool						m_writeAll = false;
	/*! Stack of open change brackets (first and last series index). */
	QVector<QPair<int, int> >	m_changes;
	QPair<int, int>				m_insertion = QPair<int, int>(-1, -1);
	QPair<int, int>				m_removal = QPair<int, int>(-1, -1);
};

} // namespace SCI

#endif // Sci_AbstractChartModelH
