#ifndef OVA_TestUtilsH
#define OVA_TestUtilsH

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include <QString>
#include <QStringList>

#include <OVP_ProjectHandler.h>
#include <OVP_Settings.h>
#include <OVP_UserInteraction.h>

#include <OVP_ProjectTestUtils.h>

namespace OVATest {

// the files, messages and scratch folders of the library tests
using OVPTest::MessageRecorder;
using OVPTest::RecordedMessage;
using OVPTest::TestUserInteraction;
using OVPTest::readText;
using OVPTest::scratchDir;
using OVPTest::writeText;
using OVPTest::writeTimeSeries;

/*! Test fixture with the process singletons a session needs: settings in an INI file of the
	scratch directory, the project handler answering every question without dialog, and a
	message recorder. It can write a session with time-series charts.
*/
class SessionTest : public ::testing::Test {
protected:
	void SetUp() override;
	void TearDown() override;

	/*! Writes the data files into dir and opens a new session with one line chart per file,
		named after the quantities; returns the number of charts.
	*/
	int createSession(const QString & dir, const QStringList & quantities);

	OVP::ProjectHandler & handler() { return *m_handler; }

	std::unique_ptr<MessageRecorder>		m_messages;
	std::unique_ptr<OVP::Settings>			m_settings;
	std::unique_ptr<OVP::ProjectHandler>	m_handler;
};

} // namespace OVATest

#endif // OVA_TestUtilsH
