#include "Sci_TestSupport.h"

#include <cstdlib>

#include <QFile>

#include <tinyxml.h>

namespace SciTest {

bool MessageCapture::has(ZEB::MsgType type, const std::string & msg, const std::string & functionId) const {
	for (const Record & r : m_records)
		if (r.m_type == type && r.m_msg == msg && r.m_functionId == functionId)
			return true;
	return false;
}


SignalRecorder::SignalRecorder(SCI::AbstractChartModel * model) {
	typedef SCI::AbstractChartModel M;
	QStringList & s = m_signals;
	QObject * c = &m_context;
	QObject::connect(model, &M::chartChanged, c, [&s](int r) { s << QString("chartChanged(%1)").arg(r); });
	QObject::connect(model, &M::axisChanged, c, [&s](int p, int r) { s << QString("axisChanged(%1,%2)").arg(p).arg(r); });
	QObject::connect(model, &M::seriesViewChanged, c, [&s](int a, int b, int r) {
		s << QString("seriesViewChanged(%1,%2,%3)").arg(a).arg(b).arg(r); });
	QObject::connect(model, &M::seriesAboutToBeInserted, c, [&s](int a, int b) { s << QString("seriesAboutToBeInserted(%1,%2)").arg(a).arg(b); });
	QObject::connect(model, &M::seriesInserted, c, [&s](int a, int b) { s << QString("seriesInserted(%1,%2)").arg(a).arg(b); });
	QObject::connect(model, &M::seriesAboutToBeRemoved, c, [&s](int a, int b) { s << QString("seriesAboutToBeRemoved(%1,%2)").arg(a).arg(b); });
	QObject::connect(model, &M::seriesRemoved, c, [&s](int a, int b) { s << QString("seriesRemoved(%1,%2)").arg(a).arg(b); });
	QObject::connect(model, &M::seriesAboutToBeChanged, c, [&s](int a, int b) { s << QString("seriesAboutToBeChanged(%1,%2)").arg(a).arg(b); });
	QObject::connect(model, &M::seriesChanged, c, [&s](int a, int b) { s << QString("seriesChanged(%1,%2)").arg(a).arg(b); });
	QObject::connect(model, &M::modelAboutToBeReset, c, [&s]() { s << "modelAboutToBeReset()"; });
	QObject::connect(model, &M::modelReset, c, [&s]() { s << "modelReset()"; });
	QObject::connect(model, &M::modelAboutToBeChanged, c, [&s]() { s << "modelAboutToBeChanged()"; });
	QObject::connect(model, &M::modelChanged, c, [&s]() { s << "modelChanged()"; });
}


QStringList childNames(const TiXmlElement * e) {
	QStringList names;
	for (const TiXmlElement * c = e->FirstChildElement(); c != nullptr; c = c->NextSiblingElement())
		names << QString::fromStdString(c->ValueStr());
	return names;
}


bool chainHas(const ZEB::Exception & ex, const std::string & msg, const std::string & functionId) {
	for (const ZEB::Exception::MsgInfo & m : ex.messages())
		if (m.m_what == msg && m.m_where == functionId)
			return true;
	return false;
}


QString scratchPath(const QString & fileName) {
	const char * dir = std::getenv("ORVANE_TEST_SCRATCH");
	return QString::fromLocal8Bit(dir != nullptr ? dir : ".") + "/" + fileName;
}


void writeTextFile(const QString & path, const std::string & text) {
	QFile f(path);
	if (f.open(QIODevice::WriteOnly | QIODevice::Truncate))
		f.write(text.data(), static_cast<qint64>(text.size()));
}

} // namespace SciTest
