#ifndef Sci_TestSupportH
#define Sci_TestSupportH

#include <string>
#include <vector>

#include <QObject>
#include <QString>
#include <QStringList>

#include <ZEB_Exception.h>
#include <ZEB_MessageHandler.h>
#include <ZEB_Unit.h>

#include <Sci_AbstractBarSeriesModel.h>
#include <Sci_AbstractColorGridSeriesModel.h>
#include <Sci_AbstractLineSeriesModel.h>
#include <Sci_AbstractVectorFieldSeriesModel.h>

class TiXmlElement;

namespace SciTest {

/*! Records the messages sent to the message handler while it exists, without printing. */
class MessageCapture : public ZEB::MessageHandler {
public:
	struct Record {
		std::string		m_msg;
		ZEB::MsgType	m_type;
		std::string		m_functionId;
	};
	MessageCapture() { ZEB::MessageHandler::setCurrent(this); }
	void message(const std::string & msg, ZEB::MsgType type, const char * functionId, int) override {
		m_records.push_back(Record{msg, type, functionId != nullptr ? functionId : ""});
	}
	/*! True when a message of this type, text and function id was recorded. */
	bool has(ZEB::MsgType type, const std::string & msg, const std::string & functionId) const;

	std::vector<Record> m_records;
};

/*! Records every signal of a chart model as text, e.g. "seriesChanged(2,3)", in emission order. */
class SignalRecorder {
public:
	explicit SignalRecorder(SCI::AbstractChartModel * model);
	QStringList m_signals;
private:
	QObject m_context;
};

/*! Line model with series of three points each, x in "h", y in "C". */
class TestLineModel : public SCI::AbstractLineSeriesModel {
public:
	explicit TestLineModel(int seriesCount);
	unsigned int seriesCount() const override { return static_cast<unsigned int>(m_count); }
	unsigned int size(int) const override { return 3; }
	const double * xValues(int) const override { return m_x; }
	const double * yValues(int) const override { return m_y; }
	ZEB::Unit xUnit(int) const override { return ZEB::Unit("h"); }
	ZEB::Unit yUnit(int) const override { return ZEB::Unit("C"); }
	/*! Inserts count series at index, inside the insertion bracket. */
	void insertSeries(int index, int count);
	/*! Removes count series from index, inside the removal bracket. */
	void removeSeries(int index, int count);
private:
	int		m_count;
	double	m_x[3] = {0, 1, 2};
	double	m_y[3] = {20, 21, 19};
};

/*! Colour grid model with an optional 3 x 2 grid given by cell edges. */
class TestColorGridModel : public SCI::AbstractColorGridSeriesModel {
public:
	explicit TestColorGridModel(bool hasGrid) : m_hasGrid(hasGrid) {}
	unsigned int seriesCount() const override { return m_hasGrid ? 1 : 0; }
	unsigned int xGridSize(int) const override { return 4; }
	const double * xGrid(int) const override { return m_xGrid; }
	unsigned int yGridSize(int) const override { return 3; }
	const double * yGrid(int) const override { return m_yGrid; }
	unsigned int xValueSize(int) const override { return 3; }
	unsigned int yValueSize(int) const override { return 2; }
	const double * values(int) const override { return m_values; }
	ZEB::Unit xUnit(int) const override { return ZEB::Unit("m"); }
	ZEB::Unit yUnit(int) const override { return ZEB::Unit("m"); }
	ZEB::Unit valueUnit(int) const override { return ZEB::Unit("C"); }
private:
	bool	m_hasGrid;
	double	m_xGrid[4] = {0, 0.1, 0.3, 0.6};
	double	m_yGrid[3] = {0, 1, 2};
	double	m_values[6] = {5, -2, 7, 1, 9.5, 3};
};

/*! Vector field model with an optional 2 x 2 field. */
class TestVectorModel : public SCI::AbstractVectorFieldSeriesModel {
public:
	explicit TestVectorModel(bool hasField) : m_hasField(hasField) {}
	unsigned int seriesCount() const override { return m_hasField ? 1 : 0; }
	unsigned int xGridSize(int) const override { return 2; }
	const double * xGrid(int) const override { return m_grid; }
	unsigned int yGridSize(int) const override { return 2; }
	const double * yGrid(int) const override { return m_grid; }
	const double * xComponents(int) const override { return m_u; }
	const double * yComponents(int) const override { return m_v; }
	ZEB::Unit xUnit(int) const override { return ZEB::Unit("m"); }
	ZEB::Unit yUnit(int) const override { return ZEB::Unit("m"); }
	ZEB::Unit valueUnit(int) const override { return ZEB::Unit("kg/m2s"); }
private:
	bool	m_hasField;
	double	m_grid[2] = {0, 1};
	double	m_u[4] = {3, 0, -1, 0};
	double	m_v[4] = {4, 0, 0, 0.5};
};

/*! Bar model with two bar positions per series. */
class TestBarModel : public SCI::AbstractBarSeriesModel {
public:
	explicit TestBarModel(int seriesCount) : m_count(seriesCount) {}
	unsigned int seriesCount() const override { return static_cast<unsigned int>(m_count); }
	unsigned int barCount() const override { return 2; }
	double barValue(int seriesIndex, unsigned int barIndex) const override { return seriesIndex + 0.5*barIndex; }
	QString barLabel(unsigned int barIndex) const override { return QString("Bar %1").arg(barIndex); }
	ZEB::Unit yUnit() const override { return ZEB::Unit("kWh/a"); }
	/*! Inserts one series at index, inside the insertion bracket. */
	void insertSeries(int index) {
		beginInsertSeries(index, index);
		++m_count;
		endInsertSeries();
	}
private:
	int m_count;
};

/*! Names of the child elements of e, in document order. */
QStringList childNames(const TiXmlElement * e);

/*! True when any record of the exception's chain has this message and function id. */
bool chainHas(const ZEB::Exception & ex, const std::string & msg, const std::string & functionId);

/*! Path of a file in the test scratch directory. */
QString scratchPath(const QString & fileName);

/*! Writes text to a file. */
void writeTextFile(const QString & path, const std::string & text);

} // namespace SciTest

#endif // Sci_TestSupportH
