#include "OVA_TestUtils.h"

#include <algorithm>
#include <cmath>

#include <QDir>
#include <QFile>

#include <DATAIO_DataIO.h>
#include <DATAIO_DataIOWriter.h>

#include <OVP_Mapper.h>

#include "LogUserInteraction.h"

namespace OVATest {

int MessageRecorder::count(ZEB::MsgType type, const std::string & text, const std::string & where) const {
	return static_cast<int>(std::count_if(m_messages.begin(), m_messages.end(), [&](const RecordedMessage & m) {
		return m.m_type == type && m.m_text == text && m.m_where == where;
	}));
}


QString scratchDir(const QString & name) {
	QDir dir(qEnvironmentVariable("ORVANE_TEST_SCRATCH"));
	const QString path = dir.filePath(name);
	QDir(path).removeRecursively();
	dir.mkpath(name);
	return path;
}


void writeTimeSeries(const QString & path, const std::vector<double> & time, const std::vector<double> & values,
					 const std::string & quantity)
{
	DATAIO::DataIO d;
	d.setFilename(path.toStdString());
	d.setProjectFileName("wall.s6p");
	d.setQuantity(quantity);
	d.setQuantityKeyword(quantity);
	d.setValueUnit("C");
	d.setTimeUnit("h");
	d.setStartYear(2015);
	d.setTimeType(DATAIO::DataIO::TT_NONE);
	d.setType(DATAIO::DataIO::T_FIELD);
	d.setSpaceType(DATAIO::DataIO::ST_MEAN);
	d.setNums({ 0, 1 });
	std::vector<std::vector<double> > rows;
	for (double v : values)
		rows.push_back({ v });
	d.setData(time, rows);
	DATAIO::DataIOWriter::write(path.toStdString(), d);
}


QString readText(const QString & path) {
	QFile f(path);
	if (!f.open(QIODevice::ReadOnly))
		return QString();
	const QByteArray bytes = f.readAll();
	return QString::fromUtf8(bytes.constData(), bytes.size());
}


void writeText(const QString & path, const QString & text) {
	QFile f(path);
	ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate)) << path.toStdString();
	f.write(text.toUtf8());
}


void SessionTest::SetUp() {
	m_messages.reset(new MessageRecorder);
	const QString settingsDir = scratchDir("settings-" + QString::fromUtf8(
		::testing::UnitTest::GetInstance()->current_test_info()->name()));
	m_settings.reset(new OVP::Settings("ZEB", "OrvanePart", settingsDir + "/settings.ini"));
	m_handler.reset(new OVP::ProjectHandler);
	m_handler->setUserInteraction(std::unique_ptr<OVP::UserInteraction>(new LogUserInteraction));
}


void SessionTest::TearDown() {
	m_handler.reset();
	m_settings.reset();
	m_messages.reset();
}


int SessionTest::createSession(const QString & dir, const QStringList & quantities) {
	m_handler->newProject();
	std::vector<double> time;
	for (int i = 0; i <= 48; ++i)
		time.push_back(i);
	for (int q = 0; q < quantities.size(); ++q) {
		std::vector<double> values;
		for (double t : time)
			values.push_back(20 + 5*q + 3*std::sin(t/24*6.283));
		const QString file = dir + "/" + quantities[q] + ".out";
		writeTimeSeries(file, time, values, quantities[q].toStdString());
		m_handler->addMapper(OVP::Mapper::createNewMapper(m_handler->dataManager(), { { file } }));
	}
	return quantities.size();
}

} // namespace OVATest
