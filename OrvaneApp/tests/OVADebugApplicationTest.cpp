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
	QString				m_title;
	QString				m_text;
	QString				m_detailedText;
	QString				m_informativeText;
	QMessageBox::Icon	m_icon = QMessageBox::NoIcon;
	Qt::WindowFlags		m_flags;
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
		box.m_title = shown->windowTitle();
		box.m_text = shown->text();
		box.m_detailedText = shown->detailedText();
		box.m_informativeText = shown->informativeText();
		box.m_icon = shown->icon();
		box.m_flags = shown->windowFlags();
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


TEST_F(LogFileTest, ZebExceptionIsLoggedAndShownWithTheLog) {
	ThrowingObject object([]() {
		ZEB::Exception inner("Cannot read file 'x.out'.", "[DataIO::read]");
		throw ZEB::Exception(inner, "Cannot refresh mapper.", "[Mapper::refresh]");
	});
	BoxContent box;
	EXPECT_FALSE(deliverAndCloseBox(object, box));

	const QString log = OVATest::readText(OVADirectories::logFile());
	const int inner = log.indexOf(QRegularExpression("\\[Error   \\]\t\\[DataIO::read\\] *\tCannot read file 'x.out'."));
	const int outer = log.indexOf(QRegularExpression("\\[Error   \\]\t\\[Mapper::refresh\\] *\tCannot refresh mapper."));
	const int caught = log.indexOf(QRegularExpression(
		"\\[Error   \\]\t\\[OVADebugApplication::notify\\] *\tZEB::Exception caught."));
	EXPECT_GE(inner, 0) << log.toStdString();
	EXPECT_GT(outer, inner);
	EXPECT_GT(caught, outer);

	ASSERT_TRUE(box.m_shown);
	EXPECT_EQ(box.m_icon, QMessageBox::Critical);
	EXPECT_TRUE(box.m_title.isEmpty());
	EXPECT_EQ(box.m_text, BOX_TEXT);
	EXPECT_TRUE(box.m_informativeText.startsWith("Orvane version " ORVANEAPP_VERSION ", log file: ")) << box.m_informativeText.toStdString();
	// the box shows the log as it was when the box came up, which already holds the messages
	EXPECT_EQ(box.m_detailedText, log);
	EXPECT_TRUE(box.m_flags.testFlag(Qt::WindowMinimizeButtonHint));
	EXPECT_TRUE(box.m_flags.testFlag(Qt::WindowMaximizeButtonHint));
	EXPECT_TRUE(box.m_flags.testFlag(Qt::WindowCloseButtonHint));
	EXPECT_TRUE(box.m_flags.testFlag(Qt::WindowSystemMenuHint));
}


TEST_F(LogFileTest, StdExceptionIsLoggedWithTheSameClosingLine) {
	ThrowingObject object([]() { throw std::runtime_error("vector index out of range"); });
	BoxContent box;
	EXPECT_FALSE(deliverAndCloseBox(object, box));

	const QString log = OVATest::readText(OVADirectories::logFile());
	const QRegularExpression what("\\[Error   \\]\t\\[OVADebugApplication::notify\\] *\tvector index out of range\n");
	const QRegularExpression caught("\\[Error   \\]\t\\[OVADebugApplication::notify\\] *\tZEB::Exception caught.\n");
	EXPECT_GE(log.indexOf(what), 0) << log.toStdString();
	EXPECT_GT(log.indexOf(caught), log.indexOf(what));
	ASSERT_TRUE(box.m_shown);
	EXPECT_EQ(box.m_text, BOX_TEXT);

	// the program goes on: the next event is delivered as usual
	ThrowingObject quiet([]() {});
	QEvent e(QEvent::User);
	EXPECT_TRUE(QCoreApplication::sendEvent(&quiet, &e));
}
