#include "OVP_ProjectTestUtils.h"

#include <algorithm>
#include <functional>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>


#include <OVP_DirectoryTreeModel.h>
#include <OVP_Project.h>

using namespace OVPTest;

namespace {

/*! The model under test, following the fixture's project handler. */
class DirectoryTreeModelTest : public ProjectTest {
protected:
	void SetUp() override {
		ProjectTest::SetUp();
		m_model.reset(new OVP::DirectoryTreeModel(handler()));
	}
	void TearDown() override {
		m_model.reset();
		ProjectTest::TearDown();
	}

	/*! The names of the rows below parent, listed first when needed. */
	QStringList names(const QModelIndex & parent = QModelIndex()) {
		if (m_model->canFetchMore(parent))
			m_model->fetchMore(parent);
		QStringList n;
		for (int i = 0; i < m_model->rowCount(parent); ++i)
			n.append(m_model->index(i, 0, parent).data().toString());
		return n;
	}

	/*! The row named name below parent (listed first when needed). */
	QModelIndex child(const QModelIndex & parent, const QString & name) {
		const int row = names(parent).indexOf(name);
		EXPECT_GE(row, 0) << name.toStdString();
		return m_model->index(row, 0, parent);
	}

	/*! Number of warnings with this text. */
	int warnings(const QString & text) const {
		int n = 0;
		for (const RecordedMessage & m : m_messages->m_messages)
			n += m.m_type == ZEB::MSG_WARNING && m.m_text == text.toStdString();
		return n;
	}

	/*! Makes the folders (relative to the test folder). */
	void makeDirs(const QStringList & dirs) {
		for (const QString & d : dirs)
			ASSERT_TRUE(QDir().mkpath(m_testDir + "/" + d));
	}

	/*! The absolute paths of the signal arguments recorded by spy. */
	static QStringList paths(const QSignalSpy & spy) {
		QStringList p;
		for (const QList<QVariant> & args : spy)
			p.append(args[0].toString());
		return p;
	}

	std::unique_ptr<OVP::DirectoryTreeModel>	m_model;
};

} // namespace


TEST_F(DirectoryTreeModelTest, StatesRoundTripThroughSession) {
	makeDirs({ "data/run1/deep", "data/run2" });
	const QString data = m_testDir + "/data";
	const QString file = m_testDir + "/s.o2";
	handler().newProject();
	ASSERT_TRUE(m_model->addDirectory(data));
	const QModelIndex top = m_model->index(0, 0);
	EXPECT_EQ(top.data(Qt::ToolTipRole).toString(), data);
	const QModelIndex run1 = child(top, "run1");
	const QModelIndex run2 = child(top, "run2");
	const QModelIndex deep = child(run1, "deep");

	// every change marks the session modified; setting what is already set does not
	const std::vector<std::pair<std::function<void()>, bool> > changes = {
		{ [&]() { m_model->setData(top, Qt::Checked, Qt::CheckStateRole); }, true },
		{ [&]() { m_model->setData(top, Qt::Checked, Qt::CheckStateRole); }, false },
		{ [&]() { m_model->setData(run1, Qt::Checked, Qt::CheckStateRole); }, true },
		{ [&]() { m_model->setData(deep, Qt::Checked, Qt::CheckStateRole); }, true },
		{ [&]() { m_model->setData(deep, Qt::Unchecked, Qt::CheckStateRole); }, true },
		{ [&]() { m_model->setColor(run2, QColor("#80ff8000")); }, true },
		{ [&]() { m_model->setData(run2, QColor("#80ff8000"), OVP::DirectoryTreeModel::ColorRole); }, false },
		{ [&]() { m_model->setExpanded(top, true); }, true },
		{ [&]() { m_model->setExpanded(run1, true); }, true },
	};
	for (std::size_t i = 0; i < changes.size(); ++i) {
		ASSERT_EQ(handler().saveProject(nullptr, file), OVP::ProjectHandler::SaveOK);
		changes[i].first();
		EXPECT_EQ(handler().isModified(), changes[i].second) << "change " << i;
	}
	ASSERT_EQ(handler().saveProject(nullptr, file), OVP::ProjectHandler::SaveOK);
	// the directory itself under ".", nothing for the folder that was checked and unchecked again
	const QString text = readText(file);
	EXPECT_TRUE(text.contains("<SubDir Checked=\"1\">.</SubDir>")) << text.toStdString();
	EXPECT_FALSE(text.contains("deep"));

	handler().newProject();
	EXPECT_EQ(m_model->rowCount(), 0);
	ASSERT_TRUE(handler().loadProject(nullptr, file, false));
	const QModelIndex top2 = m_model->index(0, 0);
	const QModelIndex run1b = child(top2, "run1");
	const QModelIndex run2b = child(top2, "run2");
	EXPECT_EQ(run1b.data(Qt::CheckStateRole).toInt(), Qt::Checked);
	EXPECT_EQ(run2b.data(Qt::CheckStateRole).toInt(), Qt::Unchecked);
	EXPECT_TRUE(m_model->isExpanded(run1b));
	EXPECT_FALSE(m_model->isExpanded(run2b));
	EXPECT_FALSE(handler().isModified());
	// the colour is shown only while user colouring is on
	EXPECT_FALSE(run2b.data(Qt::DecorationRole).isValid());
	m_settings->m_userColoring = true;
	EXPECT_EQ(run2b.data(Qt::DecorationRole).value<QColor>(), QColor("#80ff8000"));
	EXPECT_FALSE(run1b.data(Qt::DecorationRole).isValid());
}


TEST_F(DirectoryTreeModelTest, ShownFolders) {
	makeDirs({ "data/run10/.hidden", "data/run2", "data/Run3", "data/CVS/x", "data/.svn", "elsewhere/x" });
	const QString data = m_testDir + "/data";
	writeText(data + "/T.out", "a file");
	ASSERT_TRUE(QFile::link(data + "/nothing", data + "/broken"));
	ASSERT_TRUE(QFile::link(data, data + "/self"));
	ASSERT_TRUE(QFile::link(m_testDir + "/elsewhere", data + "/other"));
	m_settings->m_excludedDirNames = QStringList({ "CVS" });
	// names compare in the user's language; the C locale has no numeric order
	struct LocaleGuard {
		QLocale m_previous;
		~LocaleGuard() { QLocale::setDefault(m_previous); }
	} localeGuard;
	QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
	handler().newProject();
	ASSERT_TRUE(m_model->addDirectory(data));
	const QModelIndex top = m_model->index(0, 0);
	// numbers in names by value, case ignored; no files, hidden, excluded or broken entries
	EXPECT_EQ(names(top), QStringList({ "other", "run2", "Run3", "run10", "self" }));
	const QString brokenMessage = "Broken symbolic link '" + data + "/broken' is not shown in the directory tree.";
	EXPECT_EQ(warnings(brokenMessage), 1);
	EXPECT_FALSE(m_model->hasChildren(child(top, "run10")));
	// a link back to an ancestor is a leaf; another link is a folder like any other
	const QModelIndex self = child(top, "self");
	EXPECT_FALSE(m_model->hasChildren(self));
	EXPECT_FALSE(m_model->canFetchMore(self));
	const QModelIndex x = child(child(top, "other"), "x");
	EXPECT_EQ(m_model->absolutePath(x), data + "/other/x");
	m_model->setData(x, Qt::Checked, Qt::CheckStateRole);
	EXPECT_EQ(handler().project().m_directories[0].m_subDirectories.keys(), QStringList({ "other/x" }));

	// a changed setting counts after a refresh; the broken link is not reported again
	m_settings->m_excludedDirNames.clear();
	m_model->refresh();
	EXPECT_EQ(names(top).size(), 6);
	EXPECT_EQ(warnings(brokenMessage), 1);
}


TEST_F(DirectoryTreeModelTest, AddRemoveAndDrop) {
	makeDirs({ "a", "b", "c", "d" });
	writeText(m_testDir + "/b/T.out", "a file");
	handler().newProject();
	ASSERT_TRUE(m_model->addDirectory(m_testDir + "/a"));
	const QString again = m_testDir + "/b/../a/";
	EXPECT_FALSE(m_model->addDirectory(again));
	EXPECT_EQ(m_messages->count(ZEB::MSG_WARNING, "Directory '" + again.toStdString()
								+ "' is already in the list of top-level directories and is not added again..",
								"[ProjectHandler::addDirectory]"), 1);
	EXPECT_FALSE(m_model->addDirectory(m_testDir + "/b/T.out"));
	EXPECT_EQ(warnings("'" + m_testDir + "/b/T.out' is not an existing directory and is not added."), 1);

	// a dropped folder is added, a dropped file adds its folder, other URLs are reported
	QMimeData drop;
	drop.setUrls({ QUrl::fromLocalFile(m_testDir + "/b/T.out"), QUrl::fromLocalFile(m_testDir + "/c"),
				   QUrl("https://example.org/d") });
	EXPECT_TRUE(m_model->canDropMimeData(&drop, Qt::CopyAction, -1, -1, QModelIndex()));
	EXPECT_FALSE(m_model->canDropMimeData(&drop, Qt::MoveAction, -1, -1, QModelIndex()));
	EXPECT_TRUE(m_model->dropMimeData(&drop, Qt::CopyAction, -1, -1, QModelIndex()));
	EXPECT_EQ(warnings("'https://example.org/d' is not a local file or directory and is not added."), 1);
	// the model follows directories added through the handler, too
	handler().addDirectory(m_testDir + "/d");
	EXPECT_EQ(names(), QStringList({ "a", "b", "c", "d" }));

	EXPECT_EQ(thrown([this]() { m_model->removeDirectories(3, 2); }).first, "[ProjectHandler::removeDirectories]");
	EXPECT_EQ(m_model->rowCount(), 4);
	m_model->setData(m_model->index(2, 0), Qt::Checked, Qt::CheckStateRole);
	QSignalSpy unchecked(m_model.get(), &OVP::DirectoryTreeModel::directoryUnchecked);
	ASSERT_EQ(handler().saveProject(nullptr, m_testDir + "/s.o2"), OVP::ProjectHandler::SaveOK);
	m_model->removeDirectories(1, 2);
	EXPECT_TRUE(handler().isModified());
	EXPECT_EQ(paths(unchecked), QStringList({ m_testDir + "/c" }));
	ASSERT_EQ(handler().saveProject(nullptr, m_testDir + "/s.o2"), OVP::ProjectHandler::SaveOK);
	ASSERT_TRUE(handler().loadProject(nullptr, m_testDir + "/s.o2", false));
	EXPECT_EQ(names(), QStringList({ "a", "d" }));
}


TEST_F(DirectoryTreeModelTest, CheckedFoldersOfLoadedSession) {
	makeDirs({ "data/run1", "data/run2" });
	const QString data = m_testDir + "/data";
	const QString deleted = m_testDir + "/deleted";
	writeText(m_testDir + "/s.o2", "<Orvane version=\"2.2.3\"><Directories>"
			  "<Directory><Path>./data</Path><SubDir Checked=\"1\">.</SubDir><SubDir Checked=\"1\">gone</SubDir>"
			  "<SubDir Color=\"#102030\" Checked=\"1\">run1</SubDir><SubDir Checked=\"0\">run2</SubDir></Directory>"
			  "<Directory><Path>" + deleted + "</Path><SubDir Checked=\"1\">.</SubDir><SubDir Checked=\"1\">x</SubDir>"
			  "</Directory></Directories></Orvane>");
	handler().newProject();
	QSignalSpy checked(m_model.get(), &OVP::DirectoryTreeModel::directoryChecked);
	QSignalSpy unchecked(m_model.get(), &OVP::DirectoryTreeModel::directoryUnchecked);
	ASSERT_TRUE(handler().loadProject(nullptr, m_testDir + "/s.o2", false));
	EXPECT_EQ(paths(checked), QStringList({ data, data + "/run1" }));
	EXPECT_EQ(m_model->checkedDirectories(), paths(checked));

	// one message for each missing folder, also after listing and refreshing
	const QModelIndex missingTop = m_model->index(1, 0);
	EXPECT_EQ(missingTop.data(Qt::CheckStateRole).toInt(), Qt::Checked);
	EXPECT_FALSE(m_model->hasChildren(missingTop));
	m_model->fetchMore(missingTop);
	m_model->refresh();
	std::vector<std::string> logged;
	for (const RecordedMessage & m : m_messages->m_messages)
		if (m.m_type == ZEB::MSG_WARNING)
			logged.push_back(m.m_text);
	std::sort(logged.begin(), logged.end());
	EXPECT_EQ(logged, std::vector<std::string>({ "Checked directory '" + (data + "/gone").toStdString() + "' does not exist.",
												 "Directory '" + deleted.toStdString() + "' does not exist." }));

	// the missing folders keep their settings in the session
	m_model->setData(m_model->index(0, 0), Qt::Unchecked, Qt::CheckStateRole);
	EXPECT_EQ(paths(unchecked), QStringList({ data }));
	ASSERT_EQ(handler().saveProject(nullptr, m_testDir + "/s.o2"), OVP::ProjectHandler::SaveOK);
	const QString text = readText(m_testDir + "/s.o2");
	for (const char * expected : { "<SubDir Checked=\"1\">gone</SubDir>", "<SubDir Checked=\"1\">x</SubDir>",
								   "<SubDir Color=\"#102030\" Checked=\"1\">run1</SubDir>" })
		EXPECT_TRUE(text.contains(expected)) << expected << "\n" << text.toStdString();
}


TEST_F(DirectoryTreeModelTest, FollowsFileSystem) {
	makeDirs({ "data/run1/sub", "data/vanish/inner" });
	const QString data = m_testDir + "/data";
	handler().newProject();
	ASSERT_TRUE(m_model->addDirectory(data));
	const QModelIndex top = m_model->index(0, 0);
	m_model->setData(child(top, "run1"), Qt::Checked, Qt::CheckStateRole);
	handler().setSubDirectory(0, "later", QColor(), true);
	QSignalSpy checked(m_model.get(), &OVP::DirectoryTreeModel::directoryChecked);
	QSignalSpy unchecked(m_model.get(), &OVP::DirectoryTreeModel::directoryUnchecked);

	// a folder removed between being shown and being listed
	const QModelIndex vanish = child(top, "vanish");
	ASSERT_TRUE(QDir(data + "/vanish").removeRecursively());
	m_model->fetchMore(vanish);
	EXPECT_EQ(m_model->rowCount(vanish), 0);
	EXPECT_EQ(warnings("Directory '" + data + "/vanish' does not exist."), 1);

	// new, removed and returning checked folders show up without a refresh
	makeDirs({ "data/new", "data/later" });
	ASSERT_TRUE(QDir(data + "/run1").removeRecursively());
	EXPECT_TRUE(QTest::qWaitFor([&]() { return names(top) == QStringList({ "later", "new" }); }, 5000))
		<< names(top).join(",").toStdString();
	EXPECT_EQ(paths(checked), QStringList({ data + "/later" }));
	EXPECT_EQ(paths(unchecked), QStringList({ data + "/run1" }));
	EXPECT_TRUE(handler().project().m_directories[0].m_subDirectories.value("run1").m_checked);
}
