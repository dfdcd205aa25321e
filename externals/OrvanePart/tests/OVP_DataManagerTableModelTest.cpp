#include "OVP_ProjectTestUtils.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include <functional>
#include <tuple>

#include <QCoreApplication>
#include <QDataStream>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>

#include <DATAIO_DataIO.h>
#include <DATAIO_DataIOWriter.h>

#include <OVP_ChartCreator.h>
#include <OVP_DataCollectionReader.h>
#include <OVP_DataManager.h>
#include <OVP_DataManagerFilterModel.h>
#include <OVP_DataManagerTableModel.h>
#include <OVP_DataSetMimeData.h>
#include <OVP_DataSetOptions.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>

using OVP::DataCollection;
using OVP::DataManagerTableModel;
using OVPTest::writeText;

namespace {

const char * const UNREADABLE = "Invalid/unrecognized data file or data/geometry file cannot be accessed.";

/*! Header lines of a generation-6 ASCII output, written as text, INDICES last. */
QString header(const QString & quantity, const QString & valueUnit, const QString & timeUnit,
			   const QString & tail = "TYPE = FIELD\nSPACE_TYPE = MEAN\nINDICES = 0 1\n")
{
	return "S6OAQXV! 06.0000\nQUANTITY = " + quantity + "\nVALUE_UNIT = " + valueUnit + "\nTIME_UNIT = "
		   + timeUnit + "\n" + tail;
}

/*! A time series file with two records. */
void writeSeries(const QString & path, const QString & quantity = "Temperature") {
	writeText(path, header(quantity, "C", "h") + "1\t20\n2\t21\n");
}

/*! Processes events until the condition holds; false after the timeout. */
bool waitUntil(const std::function<bool()> & condition, int timeoutMs = 5000) {
	QElapsedTimer clock;
	clock.start();
	while (!condition()) {
		if (clock.elapsed() > timeoutMs)
			return false;
		QTest::qWait(20);
	}
	return true;
}

/*! The file names of the rows, in row order. */
QStringList rowNames(const DataManagerTableModel & model) {
	QStringList names;
	for (int r = 0; r < model.rowCount(); ++r)
		names << model.index(r, DataManagerTableModel::ColName).data().toString();
	return names;
}

/*! A fresh session, a message recorder and a data folder. */
class DataManagerTableModelTest : public OVPTest::ProjectTest {
protected:
	void SetUp() override {
		ProjectTest::SetUp();
		m_dataDir = m_testDir + "/data";
		QDir().mkpath(m_dataDir);
	}

	/*! The warnings that mention the text. */
	int warningsAbout(const QString & text) const {
		int n = 0;
		for (const OVPTest::RecordedMessage & m : m_messages->m_messages)
			if (m.m_type == ZEB::MSG_WARNING && QString::fromStdString(m.m_text).contains(text))
				++n;
		return n;
	}

	QString								m_dataDir;
};

} // namespace


TEST(OVPDataCollection, SizeTextsSwitchUnitAboveOneWholeUnit) {
	const QLocale previous;
	QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
	const std::vector<std::pair<qint64, QString> > cases = {
		{ 1024, "1,024 B" }, { 1025, "1.00 kB" }, { 1048576, "1,024.00 kB" }, { 1048577, "1.00 MB" },
		{ 5368709120LL, "5.00 GB" } };
	for (const auto & c : cases)
		EXPECT_EQ(DataCollection::sizeText(c.first), c.second) << c.first;
	QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
	EXPECT_EQ(DataCollection::sizeText(1048576), "1.024,00 kB");
	QLocale::setDefault(previous);

	// data set names come from the quantity only when it names one per column
	DATAIO::DataIO header;
	header.setType(DATAIO::DataIO::T_REFERENCE);
	header.setQuantity("Climate: outdoor temperature [C],  rain [mm/h]");
	header.setNums({ 3, 7 });
	EXPECT_EQ(DataCollection::dataSetNames(header), QStringList({ "outdoor temperature [C]", "rain [mm/h]" }));
	for (const std::string quantity : { "Climate: temperature [C], rain [mm/h], wind, sun", "Climate: a, , b" }) {
		header.setQuantity(quantity);
		header.setNums({ 3, 7, 9 });
		EXPECT_EQ(DataCollection::dataSetNames(header), QStringList({ "Column 3", "Column 7", "Column 9" })) << quantity;
	}
}


TEST_F(DataManagerTableModelTest, ListsCheckedHeadersInInsertionOrder) {
	const QString d = m_dataDir;
	writeSeries(d + "/a_series.s6o");
	DATAIO::DataIO binary;
	binary.setBinary(true);
	binary.setQuantity("Relative humidity");
	binary.setValueUnit("%");
	binary.setTimeUnit("s");
	binary.setType(DATAIO::DataIO::T_FIELD);
	binary.setSpaceType(DATAIO::DataIO::ST_SINGLE);
	binary.setNums({ 4 });
	binary.setData({ 3600, 7200 }, { { 80 }, { 81 } });
	DATAIO::DataIOWriter::write((d + "/B_binary.S6B").toStdString(), binary);
	OVPTest::writeGeometry(d + "/wall.g6a", 3, 1);
	const QString field = "TYPE = FIELD\nSPACE_TYPE = SINGLE\nGEO_FILE = wall.g6a\nINDICES = 0 1 2\n";
	writeText(d + "/c_field.s6o", header("Temperature", "C", "h", field) + "1\t1 2 3\n");
	writeText(d + "/c_field2.s6o", header("Moisture", "kg/m3", "d", field) + "1\t1 2 3\n");
	writeText(d + "/d_climate.out", header("Climate: outdoor temperature [C], wind speed [m/s], rain [mm/h]", "-", "h",
										   "TYPE = REFERENCE\nSPACE_TYPE = SINGLE\nINDICES = 0 1 2\n") + "1\t1 2 3\n");
	// only the header is read: a broken data section does not matter
	writeText(d + "/e_broken_data.s6o", header("Temperature", "C", "h") + "one two\nthree\n");

	// files that fail their check, with the message each must give
	const std::vector<std::pair<QString, QString> > failing = {
		{ "no_value_unit.s6o", "Value unit empty in DataIO container." },
		{ "bad_time_unit.s6o", "Invalid/unknown time unit 'fortnight' in DataIO container." },
		{ "metre_time.s6o", "Unit set as time unit is not convertable to seconds (not a time unit?)." },
		{ "no_quantity.s6o", "Missing quantity description in DataIO container." },
		{ "empty.s6o", UNREADABLE },
		{ "no_geometry.s6o", UNREADABLE },
		{ "broken_link.s6b", UNREADABLE } };
	writeText(d + "/no_value_unit.s6o", header("Temperature", "", "h") + "1\t20\n");
	writeText(d + "/bad_time_unit.s6o", header("Temperature", "C", "fortnight") + "1\t20\n");
	writeText(d + "/metre_time.s6o", header("Temperature", "C", "m") + "1\t20\n");
	writeText(d + "/no_quantity.s6o", header("", "C", "h") + "1\t20\n");
	writeText(d + "/empty.s6o", "");
	writeText(d + "/no_geometry.s6o", header("Temperature", "C", "h", "TYPE = FIELD\nSPACE_TYPE = SINGLE\n"
											 "GEO_FILE = missing.g6a\nINDICES = 0 1\n") + "1\t1 2\n");
	ASSERT_TRUE(QFile::link(d + "/gone.s6o", d + "/broken_link.s6b"));
	// neither listed nor reported: other names, a sub-folder, a pipe (opening it would block)
	writeText(d + "/notes.txt", "x");
	QDir().mkpath(d + "/sub");
	writeSeries(d + "/sub/f.s6o");
	ASSERT_EQ(::mkfifo((d + "/pipe.s6o").toLocal8Bit().constData(), 0600), 0);

	DataManagerTableModel model;
	QSignalSpy done(&model, &DataManagerTableModel::headersRead);
	model.addDirectory(d, QColor("#123456"));
	ASSERT_TRUE(model.isReadingHeaders());
	ASSERT_TRUE(done.wait(5000));

	EXPECT_EQ(rowNames(model), QStringList({ "a_series.s6o", "B_binary.S6B", "c_field.s6o", "c_field2.s6o",
											 "d_climate.out", "e_broken_data.s6o" }));
	const auto cells = [&model](int row) {
		QStringList texts;
		for (int c = DataManagerTableModel::ColDataFormat; c <= DataManagerTableModel::ColTimeUnit; ++c)
			texts << model.index(row, c).data().toString();
		return texts;
	};
	EXPECT_EQ(cells(1), QStringList({ "2D", "", "B_binary.S6B", "Relative humidity", "%", "s" }));
	EXPECT_EQ(cells(2), QStringList({ "3D", "", "c_field.s6o", "Temperature", "C", "h" }));
	EXPECT_EQ(cells(4), QStringList({ "2D", "", "d_climate.out", "Reference [3 datasets]", "-", "h" }));
	EXPECT_EQ(model.index(4, DataManagerTableModel::ColQuantity).data(Qt::ToolTipRole).toString(),
			  "outdoor temperature [C]\nwind speed [m/s]\nrain [mm/h]");
	// one geometry file, read once for both outputs that refer to it
	ASSERT_NE(model.collection(2).m_geometry, nullptr);
	EXPECT_EQ(model.collection(2).m_geometry, model.collection(3).m_geometry);

	const QFileInfo first(d + "/a_series.s6o");
	EXPECT_EQ(model.index(0, DataManagerTableModel::ColFileSize).data(Qt::UserRole).toLongLong(), first.size());

	// each failing file: kept with its message and reported once, naming the file
	EXPECT_EQ(model.rejectedFiles().size(), int(failing.size()));
	for (const auto & f : failing) {
		const QString path = d + "/" + f.first;
		EXPECT_EQ(model.rejectedFiles().value(path).section('\n', 0, 0), f.second) << f.first.toStdString();
		EXPECT_EQ(warningsAbout("'" + path + "'"), 1) << f.first.toStdString();
	}
	EXPECT_EQ(int(m_messages->m_messages.size()), int(failing.size()));
}


TEST_F(DataManagerTableModelTest, ListsEachFileOnceAndRemovesFolders) {
	const QString a = m_dataDir;
	const QString b = m_testDir + "/second";
	const QString link = m_testDir + "/link";
	QDir().mkpath(b);
	writeSeries(a + "/x.s6o");
	writeSeries(a + "/y.s6o");
	writeSeries(b + "/a.s6o");
	ASSERT_TRUE(QFile::link(a, link));

	DataManagerTableModel model;
	model.addDirectory(a);
	model.addDirectory(a + "/../data/");		// the same folder again
	model.addDirectory(link);					// the same files through a symbolic link
	model.addDirectory(b);
	model.readPendingHeaders();
	EXPECT_EQ(model.listedDirectories(), QStringList({ a, link, b }));
	EXPECT_EQ(rowNames(model), QStringList({ "x.s6o", "y.s6o", "a.s6o" }));

	// without the first folder its files are shown through the link, after the others
	model.removeDirectory(a);
	model.readPendingHeaders();
	EXPECT_EQ(rowNames(model), QStringList({ "a.s6o", "x.s6o", "y.s6o" }));
	EXPECT_EQ(model.rowOfFile(link + "/x.s6o"), 1);

	model.setListedDirectories({ b });
	EXPECT_EQ(rowNames(model), QStringList({ "a.s6o" }));

	// a changed file name filter applies when the folders are listed again
	writeSeries(b + "/c.out");
	m_settings->m_fileNameFilter = QStringList{ "*.out" };
	model.relistDirectories();
	model.readPendingHeaders();
	EXPECT_EQ(rowNames(model), QStringList({ "c.out" }));
	EXPECT_TRUE(m_messages->m_messages.empty());
}


TEST_F(DataManagerTableModelTest, FollowsFilesAppearingGrowingAndDisappearing) {
	const QString d = m_dataDir;
	writeSeries(d + "/a.s6o");
	DataManagerTableModel model;
	model.addDirectory(d);
	model.readPendingHeaders();
	ASSERT_EQ(model.rowCount(), 1);

	// a simulation creates its output empty and writes the header a moment later
	const QString late = d + "/late.s6o";
	writeText(late, "");
	ASSERT_TRUE(waitUntil([&]() { return model.rejectedFiles().contains(late); }));
	EXPECT_EQ(model.rowCount(), 1);
	writeSeries(late);
	ASSERT_TRUE(waitUntil([&]() { return model.rowOfFile(late) == 1; }));
	EXPECT_FALSE(model.rejectedFiles().contains(late));
	EXPECT_EQ(warningsAbout(late), 1);

	// the file grows: size and change time follow
	QFile file(late);
	ASSERT_TRUE(file.open(QIODevice::Append));
	file.write(QByteArray("3\t22\n").repeated(300));
	file.close();
	const qint64 grown = QFileInfo(late).size();
	ASSERT_TRUE(waitUntil([&]() { return model.collection(1).m_size == grown; }));

	// replaced by another file (which loses the watch of the old one), then growing
	const QString replacement = d + "/late.tmp";
	writeSeries(replacement, "Moisture");
	ASSERT_TRUE(::rename(replacement.toLocal8Bit().constData(), late.toLocal8Bit().constData()) == 0);
	ASSERT_TRUE(waitUntil([&]() { return model.collection(1).m_quantity == "Moisture"; }));
	ASSERT_TRUE(file.open(QIODevice::Append));
	file.write("3\t22\n");
	file.close();
	ASSERT_TRUE(waitUntil([&]() { return model.collection(1).m_size == QFileInfo(late).size(); }));

	// rewritten with a header that fails: the row goes, with one message, also when it grows on
	writeText(late, header("Temperature", "", "h") + "1\t20\n");
	ASSERT_TRUE(waitUntil([&]() { return model.rowOfFile(late) < 0; }));
	EXPECT_EQ(model.rejectedFiles().value(late), "Value unit empty in DataIO container.");
	ASSERT_TRUE(file.open(QIODevice::Append));
	file.write("2\t21\n");
	file.close();
	QTest::qWait(2*DataManagerTableModel::CHANGE_DELAY_MS);
	EXPECT_EQ(warningsAbout(late), 2);
	EXPECT_EQ(int(m_messages->m_messages.size()), 2);
}


TEST_F(DataManagerTableModelTest, FoldersThatCannotBeReadGiveOneMessage) {
	const QString locked = m_testDir + "/locked";
	QDir().mkpath(locked);
	writeSeries(locked + "/hidden.s6o");
	writeSeries(m_dataDir + "/a.s6o");
	ASSERT_TRUE(QFile::setPermissions(locked, QFile::Permissions()));
	// permission bits do not stop root: then the folders are listed by a child process as "nobody"
	const auto listAsNobody = [&]() {
		if (::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0))
			std::exit(2);
		DataManagerTableModel model;
		model.addDirectory(locked);
		model.addDirectory(m_testDir + "/none");
		model.addDirectory(m_dataDir);
		model.readPendingHeaders();
		const bool ok = rowNames(model) == QStringList({ "a.s6o" }) && model.rejectedFiles().isEmpty()
			&& warningsAbout("Directory '" + locked + "' cannot be read (missing permissions).") == 1
			&& warningsAbout("Directory '" + m_testDir + "/none' does not exist.") == 1
			&& m_messages->m_messages.size() == 2;
		std::exit(ok ? 0 : 1);
	};
	EXPECT_EXIT(listAsNobody(), ::testing::ExitedWithCode(0), "");
	QFile::setPermissions(locked, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);

	// a listed folder deleted from the disk takes its rows with it
	DataManagerTableModel model;
	model.addDirectory(m_dataDir);
	model.readPendingHeaders();
	ASSERT_TRUE(QDir(m_dataDir).removeRecursively());
	ASSERT_TRUE(waitUntil([&]() { return model.rowCount() == 0; }));
	EXPECT_EQ(warningsAbout("Directory '" + m_dataDir + "' does not exist."), 1);
}


// A listed file broken on disk: its row goes with one message, the others stay. Selected before
// the table noticed, it makes no chart and the user is told why, once; later changes in the
// folder give no second message.
TEST_F(DataManagerTableModelTest, ListedFileBrokenOnDisk) {
	// file name, how it breaks, the table's message
	typedef std::function<void(const QString &)> Break;
	const std::vector<std::tuple<QString, Break, QString> > cases = {
		{ "deleted", [](const QString & p) { QFile::remove(p); }, "' no longer exists and is removed from the list." },
		{ "no_unit", [](const QString & p) { writeText(p, header("Temperature", "", "h") + "1\t20\n"); },
		  "' is not listed: Value unit empty in DataIO container." } };
	handler().newProject();
	writeSeries(m_dataDir + "/a.s6o");
	for (const auto & c : cases)
		writeSeries(m_dataDir + "/" + std::get<0>(c) + ".s6o");
	DataManagerTableModel model;
	model.addDirectory(m_dataDir);
	model.readPendingHeaders();
	ASSERT_EQ(model.rowCount(), 3);
	OVP::DataSetOptions options(handler().dataManager());
	OVP::ChartCreator creator(handler(), *m_ui);

	for (std::size_t i = 0; i < cases.size(); ++i) {
		const QString path = m_dataDir + "/" + std::get<0>(cases[i]) + ".s6o";
		SCOPED_TRACE(path.toStdString());
		std::get<1>(cases[i])(path);
		options.setSelection({ OVP::Mapper::DataSet{ path } });
		EXPECT_EQ(options.selectionKind(), OVP::DataSetOptions::SK_Unsupported);
		EXPECT_TRUE(options.selectionMessage().contains(path)) << options.selectionMessage().toStdString();
		EXPECT_EQ(creator.createChart(options), -1);
		EXPECT_EQ(m_ui->m_shown.size(), i + 1);
		ASSERT_TRUE(waitUntil([&]() { return model.rowOfFile(path) < 0; }));
		EXPECT_EQ(warningsAbout("'" + path + std::get<2>(cases[i])), 1);
	}
	writeSeries(m_dataDir + "/b.s6o");
	ASSERT_TRUE(waitUntil([&]() { return model.rowCount() == 2; }));
	QTest::qWait(2*DataManagerTableModel::CHANGE_DELAY_MS);
	EXPECT_EQ(rowNames(model), QStringList({ "a.s6o", "b.s6o" }));
	EXPECT_EQ(warningsAbout("'" + m_dataDir), int(cases.size()));
	EXPECT_EQ(handler().project().mapperModel()->mapperCount(), 0);
	EXPECT_FALSE(handler().isModified());
}


TEST_F(DataManagerTableModelTest, DragsDataSetsAndSortsByRawValues) {
	const QString d = m_dataDir;
	writeText(d + "/big.s6o", header("Heat flux", "W/m2", "h") + QByteArray("1\t20\n").repeated(420));
	writeText(d + "/climate.s6o", header("Climate: outdoor temperature [C], wind speed [m/s]", "-", "h",
										 "TYPE = REFERENCE\nSPACE_TYPE = SINGLE\nINDICES = 4 7\n") + "1\t1 2\n");
	writeText(d + "/small.s6o", header("T", "C", "h", "SPACE_TYPE = MEAN\nINDICES = 0\n"));
	DataManagerTableModel model;
	model.addDirectory(d);
	model.readPendingHeaders();
	ASSERT_EQ(rowNames(model), QStringList({ "big.s6o", "climate.s6o", "small.s6o" }));

	std::unique_ptr<QMimeData> mime(model.mimeData({ model.index(2, 0), model.index(1, 2), model.index(2, 8) }));
	ASSERT_TRUE(mime->hasFormat(OVP::DataSetMimeData::MIME_TYPE));
	using DS = OVP::DataSetMimeData::DataSet;
	EXPECT_EQ(OVP::DataSetMimeData::read(mime.get()), std::vector<DS>({ DS{ d + "/climate.s6o", 4 },
		DS{ d + "/climate.s6o", 7 }, DS{ d + "/small.s6o", OVP::DataSetMimeData::NO_COLUMN } }));
	EXPECT_EQ(mime->urls(), QList<QUrl>({ QUrl::fromLocalFile(d + "/climate.s6o"), QUrl::fromLocalFile(d + "/small.s6o") }));
	QMimeData damaged;
	damaged.setData(OVP::DataSetMimeData::MIME_TYPE, mime->data(OVP::DataSetMimeData::MIME_TYPE).left(20));
	EXPECT_TRUE(OVP::DataSetMimeData::read(&damaged).empty());
	// the size column sorts by bytes, not by its text: 89 B, 165 B, 2.16 kB ("165 B" < "2.16 kB" < "89 B")
	EXPECT_EQ(model.index(2, DataManagerTableModel::ColFileSize).data().toString(), "89 B");
	OVP::DataManagerFilterModel proxy;
	proxy.setSourceModel(&model);
	proxy.sort(DataManagerTableModel::ColFileSize);
	QStringList bySize;
	for (int r = 0; r < proxy.rowCount(); ++r)
		bySize << proxy.index(r, DataManagerTableModel::ColName).data().toString();
	EXPECT_EQ(bySize, QStringList({ "small.s6o", "climate.s6o", "big.s6o" }));

	// the filter looks at name and quantity (and data set names), ignoring case
	proxy.setFilterText("WIND speed");
	ASSERT_EQ(proxy.rowCount(), 1);
	EXPECT_EQ(proxy.index(0, DataManagerTableModel::ColName).data().toString(), "climate.s6o");
}


// Foreign files go through their readers: a table is one collection with a unit per data set and a
// gap kept as NaN, a reader's header failure is reported in the data manager's words, a note that
// no reader takes is left alone, and a rewritten table is read anew on refresh.
TEST_F(DataManagerTableModelTest, ForeignFilesThroughTheirReaders) {
	const QString d = m_dataDir;
	writeText(d + "/m.csv", "Time [h];T [\xC2\xB0""C];RH [%]\n1;20,5;60\n2;;61\n");
	writeText(d + "/cut.wac", "ORVANE_WAC_02\n10\tLine Offset to 'Number of Data Columns'\n");
	writeText(d + "/solver.txt", "solver converged after 12 steps\n");

	DataManagerTableModel model;
	QSignalSpy done(&model, &DataManagerTableModel::headersRead);
	model.addDirectory(d, QColor());
	ASSERT_TRUE(done.wait(5000));
	ASSERT_EQ(rowNames(model), QStringList({ "m.csv" }));
	EXPECT_EQ(model.index(0, DataManagerTableModel::ColQuantity).data().toString(), "Reference [2 datasets]");
	EXPECT_EQ(model.index(0, DataManagerTableModel::ColValueUnit).data().toString(), "C, %");
	EXPECT_EQ(model.rejectedFiles().keys(), QStringList({ d + "/cut.wac" }));
	EXPECT_TRUE(model.rejectedFiles().value(d + "/cut.wac").startsWith("FileReader reported header error for file '" + d + "/cut.wac': "));

	// units a reader reports are checked against the unit table
	DATAIO::DataIO header;
	header.setNums({ 0, 1 });
	header.setQuantity("q");
	header.setTimeUnit("h");
	header.setColumnProperties({ "a", "b" }, { "C", "degrees" });
	const auto failure = [&header]() {
		return OVPTest::thrown([&header]() { OVP::DataCollectionReader::checkForeignHeader(header); }).second;
	};
	EXPECT_EQ(failure(), "Invalid value unit 'degrees' reported from file reader plugin.");

	OVP::DataManager manager;
	std::shared_ptr<DATAIO::DataIO> table = manager.container(d + "/m.csv");
	// the gap and the decimal comma are the reader's; a rewritten table is read anew
	ASSERT_EQ(table->timePoints(), std::vector<double>({ 1, 2 }));
	EXPECT_FALSE(manager.refresh(table.get()));
	writeText(d + "/m.csv", "Time [h];T [\xC2\xB0""C];RH [%]\n1;20,5;60\n2;;61\n3;21;62\n");
	EXPECT_TRUE(manager.refresh(table.get()));
	EXPECT_EQ(table->timePoints().size(), 3u);
	EXPECT_EQ(manager.revision(table.get()), 1u);
}
