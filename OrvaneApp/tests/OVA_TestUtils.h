#ifndef OVA_TestUtilsH
#define OVA_TestUtilsH

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include <QString>
#include <QStringList>

#include <ZEB_MessageHandler.h>

#include <OVP_ProjectHandler.h>
#include <OVP_Settings.h>
#include <OVP_UserInteraction.h>

namespace OVATest {

/*! One message received by a MessageRecorder. */
struct RecordedMessage {
	std::string		m_text;
	ZEB::MsgType	m_type;
	std::string		m_where;
};

/*! A message handler that records every message instead of writing it; current while it lives. */
class MessageRecorder : public ZEB::MessageHandler {
public:
	MessageRecorder() { ZEB::MessageHandler::setCurrent(this); }
	~MessageRecorder() override { ZEB::MessageHandler::setCurrent(nullptr); }

	void message(const std::string & msg, ZEB::MsgType type, const char * functionId, int) override {
		m_messages.push_back(RecordedMessage{ msg, type, functionId == nullptr ? "" : functionId });
	}

	/*! Number of messages of this type, text and origin. */
	int count(ZEB::MsgType type, const std::string & text, const std::string & where) const;

	std::vector<RecordedMessage>	m_messages;
};

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

/*! A fresh, empty directory below the scratch directory. */
QString scratchDir(const QString & name);

/*! Writes a time series output file (one value per time point, hours, degree Celsius). */
void writeTimeSeries(const QString & path, const std::vector<double> & time, const std::vector<double> & values,
					 const std::string & quantity);

/*! The text of a file; empty when it cannot be read. */
QString readText(const QString & path);
/*! Writes a text file. */
void writeText(const QString & path, const QString & text);

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
