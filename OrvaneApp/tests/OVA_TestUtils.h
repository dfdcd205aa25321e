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
using OVPTest::readText;
using OVPTest::scratchDir;
using OVPTest::writeText;
using OVPTest::writeTimeSeries;

/*! User interaction that gives one prepared answer to every save question, declines every
	other question and records the questions and notices it was shown.
*/
class AnsweringUserInteraction : public OVP::UserInteraction {
public:
	explicit AnsweringUserInteraction(SaveAnswer answer) : m_answer(answer) {}

	SaveAnswer askSaveDiscardCancel(QWidget *, const QString &, const QString & text) override {
		m_shown.append(text);
		return m_answer;
	}
	void showCritical(QWidget *, const QString & title, const QString & text) override {
		m_shown.append(title + ": " + text);
	}
	bool askRestoreFromBackup(QWidget *, const QString &, const QString & text) override {
		m_shown.append(text);
		return false;
	}
	bool askConfirmation(QWidget *, const QString &, const QString & text) override {
		m_shown.append(text);
		return false;
	}
	QString saveFileName(QWidget *, const QString &, const QString &, const QString &) override { return QString(); }
	QString askDataFolder(QWidget *, const QString &, const QString & text, const QString &) override {
		m_shown.append(text);
		return QString();
	}
	QString existingDirectory(QWidget *, const QString &, const QString &) override { return QString(); }
	QString askText(QWidget *, const QString &, const QString &) override { return QString(); }
	int chooseItem(QWidget *, const QString &, const QString &, const QStringList &) override { return -1; }

	SaveAnswer	m_answer;
	QStringList	m_shown;
};

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
