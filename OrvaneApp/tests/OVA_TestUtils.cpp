#include "OVA_TestUtils.h"

#include <cmath>

#include <OVP_Mapper.h>

#include "LogUserInteraction.h"

namespace OVATest {

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
