#ifndef OVP_ProjectTestUtilsH
#define OVP_ProjectTestUtilsH

#include <gtest/gtest.h>

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <QString>
#include <QStringList>

#include <ZEB_Exception.h>
#include <ZEB_MessageHandler.h>

#include <EM_CutType.h>

#include <OVP_ProjectHandler.h>
#include <OVP_Settings.h>
#include <OVP_UserInteraction.h>

namespace OVPTest {

/*! One message received by a MessageRecorder. */
struct RecordedMessage {
	std::string		m_text;
	ZEB::MsgType	m_type;
	std::string		m_where;
	int				m_level;
};

/*! A message handler that records every message instead of writing it; current while it lives. */
class MessageRecorder : public ZEB::MessageHandler {
public:
	MessageRecorder() { ZEB::MessageHandler::setCurrent(this); }
	~MessageRecorder() override { ZEB::MessageHandler::setCurrent(nullptr); }

	void message(const std::string & msg, ZEB::MsgType type, const char * functionId, int verboseLevel) override {
		m_messages.push_back(RecordedMessage{ msg, type, functionId == nullptr ? "" : functionId, verboseLevel });
	}

	/*! Number of messages of this type, text and origin. */
	int count(ZEB::MsgType type, const std::string & text, const std::string & where) const;
	/*! The texts of the messages of a type (of all for -1), each ending a line. */
	std::string text(int type = -1) const;

	std::vector<RecordedMessage>	m_messages;
};

/*! User interaction that answers from prepared replies and records what it was shown. */
class TestUserInteraction : public OVP::UserInteraction {
public:
	/*! A question or notice that was shown. */
	struct Shown {
		QString	m_kind;		///< "question", "critical", "restore", "confirm", "file", "data folder", "folder" or "choice"
		QString	m_title;
		QString	m_text;
		QString	m_extra;	///< file dialogs: the default file and the filter; folders: the start; choices: the items
	};

	SaveAnswer askSaveDiscardCancel(QWidget *, const QString & title, const QString & text) override {
		return reply(m_saveAnswers, { "question", title, text, QString() }, AnswerCancel);
	}
	void showCritical(QWidget *, const QString & title, const QString & text) override {
		m_shown.push_back(Shown{ "critical", title, text, QString() });
	}
	bool askRestoreFromBackup(QWidget *, const QString & title, const QString & text) override {
		return reply(m_restoreAnswers, { "restore", title, text, QString() }, false);
	}
	bool askConfirmation(QWidget *, const QString & title, const QString & text) override {
		return reply(m_confirmAnswers, { "confirm", title, text, QString() }, false);
	}
	QString saveFileName(QWidget *, const QString & caption, const QString & defaultFile, const QString & filter) override {
		return reply(m_fileNames, { "file", caption, defaultFile, filter }, QString());
	}
	QString askDataFolder(QWidget *, const QString & title, const QString & text, const QString & start) override {
		return reply(m_folders, { "data folder", title, text, start }, QString());
	}
	QString existingDirectory(QWidget *, const QString & caption, const QString & start) override {
		return reply(m_folders, { "folder", caption, QString(), start }, QString());
	}
	int chooseItem(QWidget *, const QString & title, const QString & label, const QStringList & items) override {
		return reply(m_choices, { "choice", title, label, items.join("\n") }, -1);
	}
	QString askText(QWidget *, const QString & title, const QString & label) override {
		return reply(m_texts, { "text", title, label, QString() }, QString());
	}

	/*! Replies given in order; an exhausted list fails the test. */
	std::deque<SaveAnswer>	m_saveAnswers;
	std::deque<bool>		m_restoreAnswers;
	std::deque<bool>		m_confirmAnswers;
	std::deque<QString>		m_fileNames;
	/*! Answers of both folder questions. */
	std::deque<QString>		m_folders;
	std::deque<int>			m_choices;
	std::deque<QString>		m_texts;
	std::vector<Shown>		m_shown;

private:
	/*! Records what is shown and gives the next prepared reply; an exhausted list fails the test
		and gives none.
	*/
	template <typename T>
	T reply(std::deque<T> & replies, const Shown & shown, T none) {
		m_shown.push_back(shown);
		if (replies.empty()) {
			ADD_FAILURE() << "unexpected dialog: " << shown.m_title.toStdString() << ": " << shown.m_text.toStdString();
			return none;
		}
		const T answer = replies.front();
		replies.pop_front();
		return answer;
	}
};

/*! A fresh, empty directory below the scratch directory. */
QString scratchDir(const QString & name);
/*! A fresh, empty directory named after the running test (suite and name). */
QString testScratchDir();

/*! The function id and text of the exception thrown by f (empty when none is thrown). */
template <typename F>
std::pair<std::string, std::string> thrown(F f) {
	try {
		f();
	}
	catch (ZEB::Exception & ex) {
		return { ex.messages().back().m_where, ex.what() };
	}
	return {};
}

/*! Writes a time series output file: one value per time point, generation 6 ASCII. */
void writeTimeSeries(const QString & path, const std::vector<double> & time, const std::vector<double> & values,
					 const std::string & quantity = "Temperature", const std::string & valueUnit = "C",
					 int startYear = 2015, const std::string & timeUnit = "h");

/*! Writes a reference output file whose columns carry the numbers in columns, rows[t][c]. */
void writeReference(const QString & path, const std::vector<std::uint32_t> & columns, const std::vector<double> & time,
					const std::vector<std::vector<double> > & rows);

/*! Writes a geometry file of nx x ny elements (widths 0.1 m in x, 0.2 m in y, one layer in z)
	with all sides: element (i, j) has number j*nx + i; sides normal to x are numbered first,
	(j*(nx+1) + i), then those normal to y, (nx+1)*ny + i*(ny+1) + j.
*/
void writeGeometry(const QString & path, unsigned int nx, unsigned int ny);

/*! Writes a field (elements) or flux (sides) output file referring to a geometry file name,
	rows[t][column].
*/
void writeField(const QString & path, const std::string & geoFileName, const std::vector<std::uint32_t> & nums,
				const std::vector<double> & time, const std::vector<std::vector<double> > & rows, bool flux = false);

/*! Writes the files most tests start from into dir: the series T.out (20..23 C), TK.out (the
	same in K) and RH.out (80..95 %) over the hours 0..3, and the geometries wall.g6a (3 x 2) and
	line.g6a (4 x 1).
*/
void writeCommonFiles(const QString & dir);
/*! Creates dir and writes the common files (writeCommonFiles()) and the element fields
	profile.out (line, 3 time points) and plane.out (wall, 2 time points); flux.out (all 17
	sides of the wall, 1 time point).
*/
void writeSampleData(const QString & dir);

/*! The text of a file. */
QString readText(const QString & path);
/*! Writes a text file. */
void writeText(const QString & path, const QString & text);


/*! Test fixture with the process singletons a project needs: settings in an INI file of the
	scratch directory, the project handler with a TestUserInteraction, and a message recorder.
*/
class ProjectTest : public ::testing::Test {
protected:
	void SetUp() override;
	void TearDown() override;

	OVP::ProjectHandler & handler() { return *m_handler; }

	/*! The scratch folder of the running test, empty at its start. */
	QString									m_testDir;
	std::unique_ptr<OVP::Settings>			m_settings;
	std::unique_ptr<OVP::ProjectHandler>	m_handler;
	TestUserInteraction *					m_ui = nullptr;
	std::unique_ptr<MessageRecorder>		m_messages;
};

/*! A project test with the sample result files in m_dir and an empty session. */
class SampleSessionTest : public ProjectTest {
protected:
	void SetUp() override;

	/*! Adds a chart of the first file (with a cut) and a series of each further file, named
		after the first file; returns it. */
	OVP::Mapper & addChart(const QStringList & files, EM::CutType cut = EM::CT_NoCut);
	OVP::Mapper & addChart(const char * file, EM::CutType cut = EM::CT_NoCut) { return addChart(QStringList{ file }, cut); }
	/*! The chart at a mapper index of the session. */
	OVP::Mapper & mapper(int index);

	QString	m_dir;
};

} // namespace OVPTest

#endif // OVP_ProjectTestUtilsH
