#include "OVP_ProjectTestUtils.h"

#include <functional>

#include <QFile>
#include <QSignalSpy>

#include <Sci_AbstractLineSeriesModel.h>

#include <OVP_DataManager.h>
#include <OVP_Mapper.h>
#include <OVP_ProgressNotifier.h>

using namespace OVPTest;

namespace {

/*! Appends count lines "t 20.5" with the time points first, first + 1, ... to a series file;
	9 MB for a million lines, more than two blocks of the reader.
*/
void appendLines(const QString & path, int first, int count, const QByteArray & tail = QByteArray()) {
	QByteArray text;
	text.reserve(count*14);
	for (int t = first; t < first + count; ++t)
		text += QByteArray::number(t) + " 20.5\n";
	QFile f(path);
	ASSERT_TRUE(f.open(QIODevice::Append));
	f.write(text + tail);
}

/*! Data manager and notifier without interval, so that the event loop runs whenever the
	percentage changes.
*/
class ProgressNotifierTest : public ProjectTest {
protected:
	void SetUp() override {
		ProjectTest::SetUp();
		m_notifier.setEventInterval(0);
		m_file = m_testDir + "/big.s6o";
		writeTimeSeries(m_file, { 0 }, { 20 });
		handler().dataManager().setProgressNotifier(&m_notifier);
		QObject::connect(&m_notifier, &OVP::ProgressNotifier::progressChanged, [this](int percent) {
			m_percents.push_back(percent);
		});
	}

	/*! Posts a call for the next turn of the event loop, recording the percentage then. */
	void postCall(std::function<void()> call) {
		m_percentAtCall = -1;
		QMetaObject::invokeMethod(&m_notifier, [this, call]() {
			m_percentAtCall = m_percents.empty() ? 0 : m_percents.back();
			call();
		}, Qt::QueuedConnection);
	}

	/*! The recorded percentages rise strictly, end at 100 and are more than start and end. */
	void expectRisingToFull() {
		ASSERT_GE(m_percents.size(), 3u);
		for (std::size_t i = 1; i < m_percents.size(); ++i)
			EXPECT_GT(m_percents[i], m_percents[i - 1]);
		EXPECT_EQ(m_percents.back(), 100);
		m_percents.clear();
	}

	OVP::ProgressNotifier	m_notifier;
	QString					m_file;
	std::vector<int>		m_percents;
	/*! Percentage when the posted call ran; -1 when it did not run. */
	int						m_percentAtCall = -1;
};

} // namespace


TEST_F(ProgressNotifierTest, OpeningReportsProgressAndKeepsTheWindowAlive) {
	appendLines(m_file, 1, 1000000);
	QSignalSpy started(&m_notifier, &OVP::ProgressNotifier::started);
	QSignalSpy finished(&m_notifier, &OVP::ProgressNotifier::finished);

	// opening: a posted call runs while the file is read, that is before its end
	postCall([]() {});
	std::unique_ptr<OVP::Mapper> m = OVP::Mapper::createNewMapper(handler().dataManager(), { { m_file } });
	expectRisingToFull();
	EXPECT_TRUE(m_percentAtCall >= 0 && m_percentAtCall < 100) << m_percentAtCall;
	ASSERT_EQ(started.count(), 1);
	EXPECT_EQ(started[0][0].toString(), m_file);
	EXPECT_EQ(finished.count(), 1);
}


TEST_F(ProgressNotifierTest, FailedReadEndsOnlyItsOwnProgress) {
	// a corrupt line after more than a block: progress was reported when the read fails
	appendLines(m_file, 1, 1000000, "x 1\n");
	QSignalSpy finished(&m_notifier, &OVP::ProgressNotifier::finished);
	m_notifier.begin("session");
	EXPECT_THROW(handler().dataManager().container(m_file), ZEB::Exception);
	EXPECT_GE(m_percents.size(), 2u);
	EXPECT_FALSE(handler().dataManager().isReading());
	// the outer read still runs
	EXPECT_TRUE(m_notifier.isActive());
	EXPECT_EQ(finished.count(), 0);
	m_notifier.end();
	EXPECT_FALSE(m_notifier.isActive());
	EXPECT_EQ(finished.count(), 1);
}
