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
