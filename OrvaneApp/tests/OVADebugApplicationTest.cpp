#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTimer>

#include <ZEB_Exception.h>

#include <OVP_MessageHandler.h>

#include "OVADirectories.h"
#include "OVA_TestUtils.h"

namespace {

/*! An object whose event handler throws the exception it is given. */
class ThrowingObject : public QObject {
public:
	explicit ThrowingObject(std::function<void()> thrower) : m_thrower(std::move(thrower)) {}
	bool event(QEvent * e) override {
		if (e->type() != QEvent::User)
			return QObject::event(e);
		m_thrower();
		return true;
	}
private:
	std::function<void()> m_thrower;
};

/*! What the error box showed. */
struct BoxContent {
	bool				m_shown = false;
	QString				m_text;
	QString				m_detailedText;
	QString				m_informativeText;
};

/*! Delivers an event to an object that throws, through the application's event dispatch, and
	records and closes the error box that comes up. Returns the dispatch result.
*/
bool deliverAndCloseBox(ThrowingObject & object, BoxContent & box) {
	QTimer poll;
	poll.setInterval(10);
	QObject::connect(&poll, &QTimer::timeout, [&box]() {
		QMessageBox * shown = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
		if (shown == nullptr)
			return;
		box.m_shown = true;
		box.m_text = shown->text();
		box.m_detailedText = shown->detailedText();
		box.m_informativeText = shown->informativeText();
		shown->done(0);
	});
	poll.start();
	QEvent e(QEvent::User);
	return QCoreApplication::sendEvent(&object, &e);
}

/*! A message handler that writes the log file of the application, as at start-up. */
class LogFileTest : public ::testing::Test {
protected:
	void SetUp() override {
		QDir().mkpath(OVADirectories::userDataDir());
		std::string error;
		ASSERT_TRUE(m_handler.openLog(OVADirectories::logFile().toStdString(), false, error)) << error;
		ZEB::MessageHandler::setCurrent(&m_handler);
	}
	void TearDown() override {
		ZEB::MessageHandler::setCurrent(nullptr);
	}

	OVP::MessageHandler m_handler;
};

const QString BOX_TEXT = "Orvane 2 encountered an unexpected error (we certainly didn't want this error to happen :-). "
						 "Please copy the content of the application log file and send the last lines with any "
						 "potential error messages to the developers. Thanks!";

} // namespace


// Exceptions out of an event handler, of our own with their chain or of the standard library: the
// messages are logged in order and closed by one line, the box shows the log; the program goes on.
TEST_F(LogFileTest, ExceptionsAreLoggedAndShownWithTheLog) {
	const QString error = "\\[Error   \\]\t\\[%1\\] *\t%2\n";
	const QString caught = error.arg("OVADebugApplication::notify", "ZEB::Exception caught\\.");
	const std::pair<std::function<void()>, QStringList> cases[] = {
		{ []() {
			ZEB::Exception inner("Cannot read file 'x.out'.", "[DataIO::read]");
			throw ZEB::Exception(inner, "Cannot refresh mapper.", "[Mapper::refresh]");
		  }, { error.arg("DataIO::read", "Cannot read file 'x\\.out'\\."),
			   error.arg("Mapper::refresh", "Cannot refresh mapper\\."), caught } },
		{ []() { throw std::runtime_error("vector index out of range"); },
		  { error.arg("OVADebugApplication::notify", "vector index out of range"), caught } } };
	for (const auto & c : cases) {
		ThrowingObject object(c.first);
		BoxContent box;
		EXPECT_FALSE(deliverAndCloseBox(object, box));
		const QString log = OVATest::readText(OVADirectories::logFile());
		int at = -1;
		for (const QString & line : c.second) {
			const int next = log.indexOf(QRegularExpression(line), at + 1);
			EXPECT_GT(next, at) << line.toStdString() << "\n" << log.toStdString();
			at = next;
		}
		ASSERT_TRUE(box.m_shown);
		EXPECT_EQ(box.m_text, BOX_TEXT);
		EXPECT_TRUE(box.m_informativeText.startsWith("Orvane version " ORVANEAPP_VERSION ", log file: "))
			<< box.m_informativeText.toStdString();
		// the log as it was when the box came up, which already holds the messages
		EXPECT_EQ(box.m_detailedText, log);
	}
	// the next event is delivered as usual
	ThrowingObject quiet([]() {});
	QEvent e(QEvent::User);
	EXPECT_TRUE(QCoreApplication::sendEvent(&quiet, &e));
}
