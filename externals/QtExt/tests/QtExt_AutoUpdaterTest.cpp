#include <gtest/gtest.h>

#include <map>
#include <memory>

#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>

#include <ZEB_Exception.h>

#include <QtExt_AutoUpdater.h>

#include "QtExt_TestSupport.h"

using QtExtTest::scratchDir;
using QtExtTest::writeFile;

namespace {

/*! A minimal HTTP server on 127.0.0.1 that answers GET requests from a table of paths. */
class TinyHttpServer : public QObject {
public:
	TinyHttpServer() {
		QObject::connect(&m_server, &QTcpServer::newConnection, this, [this]() {
			while (QTcpSocket * socket = m_server.nextPendingConnection()) {
				// the request belongs to its connection alone: a later socket that gets this one's
				// address must not inherit any of it
				auto request = std::make_shared<QByteArray>();
				QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket, request]() {
					*request += socket->readAll();
					if (!request->contains("\r\n\r\n"))
						return;
					auto it = m_files.find(request->split(' ').value(1));
					socket->write(it == m_files.end()
						? QByteArray("HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\nConnection: close\r\n\r\n")
						: "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(it->second.size()) +
						  "\r\nConnection: close\r\n\r\n" + it->second);
					socket->disconnectFromHost();
				});
				QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
			}
		});
		m_server.listen(QHostAddress::LocalHost);
	}
	QUrl url(const QString & path) const {
		return QUrl(QString("http://127.0.0.1:%1%2").arg(m_server.serverPort()).arg(path));
	}
	std::map<QByteArray, QByteArray> m_files;	///< path -> body; other paths get 404

private:
	QTcpServer	m_server;
};

QByteArray md5Hex(const QByteArray & data) {
	return QCryptographicHash::hash(data, QCryptographicHash::Md5).toHex();
}

/*! Runs installUpdate and returns the exception it throws (an empty one when none). */
ZEB::Exception installFailure(const QString & dir, const QString & name) {
	try {
		QtExt::AutoUpdater::installUpdate(dir, name);
	}
	catch (ZEB::Exception & ex) {
		return ex;
	}
	return ZEB::Exception();
}

} // namespace


TEST(QtExtUpdateInfo, ParsesVersionFile) {
	const QUrl base("http://updates.example.org/orvane/version.txt");
	const QtExt::UpdateInfo info = QtExt::UpdateInfo::parse(
		"# update information\r\n"
		"version: 2.10.1\r\n"
		"installer: setup/OrvaneApp_2.10.1.exe\r\n"
		"future-key: ignored\r\n"
		"\r\n"
		"Line one of changes.\r\n"
		"\r\n"
		"Line two: with colon.\r\n", base);
	EXPECT_EQ(info.m_version, "2.10.1");
	EXPECT_EQ(info.m_md5Url, QUrl("http://updates.example.org/orvane/setup/OrvaneApp_2.10.1.exe.md5"));
	EXPECT_EQ(info.installerName(), "OrvaneApp_2.10.1.exe");
	EXPECT_EQ(info.m_changeLog, "Line one of changes.\r\n\r\nLine two: with colon.");

	const QtExt::UpdateInfo abs = QtExt::UpdateInfo::parse(
		"version: 3\ninstaller: https://mirror.example.org/x/setup.exe\nmd5: /hashes/setup.md5\n", base);
	EXPECT_EQ(abs.m_installerUrl, QUrl("https://mirror.example.org/x/setup.exe"));
	EXPECT_EQ(abs.m_md5Url, QUrl("http://updates.example.org/hashes/setup.md5"));

	const std::map<std::string, std::string> broken = {
		{ "installer: a.exe\n", "Version file lacks the 'version' entry." },
		{ "version: 2.x\ninstaller: a.exe\n", "Invalid version number '2.x' in version file." },
		{ "version: 2\n", "Version file lacks a valid 'installer' entry." },
		{ "version: 2\ninstaller: dir/\n", "Version file lacks a valid 'installer' entry." },
		{ "<html>\n<body>Not found</body>\n", "Invalid line 1 in version file: '<html>'." }
	};
	for (const auto & b : broken) {
		try {
			QtExt::UpdateInfo::parse(QByteArray::fromStdString(b.first), base);
			ADD_FAILURE() << "accepted: " << b.first;
		}
		catch (ZEB::Exception & ex) {
			EXPECT_EQ(ex.msgWithOrigin(), "[UpdateInfo::parse] " + b.second + "\n") << b.first;
		}
	}
}


TEST(QtExtAutoUpdater, VersionComparison) {
	EXPECT_EQ(QtExt::AutoUpdater::compareVersions("2.1", "2.1.0"), 0);
	EXPECT_EQ(QtExt::AutoUpdater::compareVersions("02.1", "2.1"), 0);
	for (const char * bad : { "", "2.1-beta", "v2", "2..1", "1.2.", " 1.2" })
		EXPECT_THROW(QtExt::AutoUpdater::compareVersions(bad, "1.0"), ZEB::Exception) << bad;

	// a total order: antisymmetric and consistent with the order of this hand-sorted list
	const QStringList sorted{ "0.1", "0.9.9", "1", "1.0.1", "1.2", "1.10", "1.10.0.1", "2.0.9", "10.0" };
	for (int i = 0; i < sorted.size(); ++i)
		for (int j = 0; j < sorted.size(); ++j) {
			const int expected = i < j ? -1 : (i > j ? 1 : 0);
			EXPECT_EQ(QtExt::AutoUpdater::compareVersions(sorted[i], sorted[j]), expected)
					<< sorted[i].toStdString() << " vs " << sorted[j].toStdString();
		}

	EXPECT_TRUE(QtExt::AutoUpdater::isUpdateAvailable("2.1", "2.0.5", ""));
	EXPECT_FALSE(QtExt::AutoUpdater::isUpdateAvailable("2.0.5", "2.0.5", ""));
	EXPECT_FALSE(QtExt::AutoUpdater::isUpdateAvailable("2.1", "2.0", "2.1"));		// rejected before
	EXPECT_FALSE(QtExt::AutoUpdater::isUpdateAvailable("2.1", "2.0", "2.2"));		// newer one rejected
	EXPECT_TRUE(QtExt::AutoUpdater::isUpdateAvailable("2.2", "2.0", "2.1"));		// newer than the rejected one
	EXPECT_THROW(QtExt::AutoUpdater::isUpdateAvailable("2.2", "2.0", "garbage"), ZEB::Exception);
}


TEST(QtExtAutoUpdater, CheckDownloadAndInstallOverHttp) {
	TinyHttpServer server;
	const QString downloads = QDir(scratchDir("update-downloads")).filePath("nested/updates");
	const QByteArray installer = "#!/bin/sh\necho installed > installer-ran.txt\nexit 0\n# " + QByteArray(300000, 'x') + "\n";
	server.m_files["/orvane/bin/setup.sh"] = installer;
	server.m_files["/orvane/bin/setup.sh.md5"] = md5Hex(installer) + "  setup.sh\n";
	server.m_files["/orvane/version.txt"] = "version: 2.3.0\ninstaller: bin/setup.sh\n\nBetter charts.\n";
	const QUrl versionUrl = server.url("/orvane/version.txt");

	QtExt::AutoUpdater updater;
	QSignalSpy info(&updater, &QtExt::AutoUpdater::updateInfoRetrieved);
	QSignalSpy errors(&updater, &QtExt::AutoUpdater::errorOccurred);
	QSignalSpy done(&updater, &QtExt::AutoUpdater::updateDownloaded);

	updater.checkForUpdateInfo(versionUrl, "2.2.9", "2.2.10");
	ASSERT_TRUE(info.wait(10000));
	EXPECT_TRUE(info.at(0).at(0).toBool());

	updater.downloadUpdate(downloads);
	ASSERT_TRUE(done.wait(10000)) << errors.value(0).value(0).toString().toStdString();
	QFile downloaded(QDir(downloads).filePath("setup.sh"));
	EXPECT_TRUE(downloaded.open(QIODevice::ReadOnly) && downloaded.readAll() == installer);

	// the downloaded pair installs: the installer runs detached in the download directory
	ASSERT_NO_THROW(QtExt::AutoUpdater::installUpdate(downloads, "setup.sh"));
	const QString marker = QDir(downloads).filePath("installer-ran.txt");
	QElapsedTimer waited;
	waited.start();
	while (!QFileInfo(marker).exists() && waited.elapsed() < 10000)
		QThread::msleep(20);
	EXPECT_TRUE(QFileInfo(marker).exists());

	// a missing installer on the server ends in an error, and no half file stays behind
	server.m_files["/orvane/version.txt"] = "version: 2.4\ninstaller: missing.exe\n";
	updater.checkForUpdateInfo(versionUrl, "2.2.9", "");
	ASSERT_TRUE(info.wait(10000));
	updater.downloadUpdate(downloads);
	ASSERT_TRUE(errors.wait(10000));
	EXPECT_TRUE(errors.at(0).at(0).toString().contains("missing.exe"));
	EXPECT_FALSE(QFileInfo(QDir(downloads).filePath("missing.exe")).exists());

	// an oversized version file is refused
	server.m_files["/orvane/version.txt"] = "version: 9\ninstaller: a.exe\n\n" + QByteArray(200000, 'c');
	updater.checkForUpdateInfo(versionUrl, "2.2.9", "");
	ASSERT_TRUE(errors.wait(10000));
	EXPECT_TRUE(errors.at(1).at(0).toString().contains("larger than expected"));

	// a failed check names the file and forgets the earlier information, so nothing can be downloaded
	updater.checkForUpdateInfo(server.url("/nothing-here.txt"), "4.9", "");
	ASSERT_TRUE(errors.wait(10000));
	EXPECT_TRUE(errors.at(2).at(0).toString().contains("nothing-here.txt"));
	updater.downloadUpdate(downloads);
	EXPECT_EQ(errors.count(), 4);
}


TEST(QtExtAutoUpdater, InstallChecksMd5) {
	const QString dir = scratchDir("install");
	const QByteArray installer = "#!/bin/sh\nexit 0\n";
	ASSERT_TRUE(writeFile(QDir(dir).filePath("setup.sh"), installer));

	// hand-computed hashes must decide, independent of the hash function of the code
	ASSERT_TRUE(writeFile(QDir(dir).filePath("empty.bin"), ""));
	ASSERT_TRUE(writeFile(QDir(dir).filePath("empty.bin.md5"), "D41D8CD98F00B204E9800998ECF8427E\n"));
	ASSERT_TRUE(writeFile(QDir(dir).filePath("abc.bin"), "abc"));
	ASSERT_TRUE(writeFile(QDir(dir).filePath("abc.bin.md5"), "d41d8cd98f00b204e9800998ecf8427e\n"));
	ZEB::Exception mismatch = installFailure(dir, "abc.bin");
	EXPECT_EQ(std::string(mismatch.what()), "Mismatching md5 hash of installer file.");
	EXPECT_NE(mismatch.msgWithOrigin().find("900150983cd24fb0d6963f7d28e17f72"), std::string::npos) << mismatch.msgWithOrigin();
	// the empty file matches its upper-case hash: whatever happens then, it is no mismatch
	EXPECT_EQ(installFailure(dir, "empty.bin").msgWithOrigin().find("Mismatching"), std::string::npos);

	// every other failure: "Error installing update." with the reason before it
	const std::vector<std::pair<QByteArray, QString>> otherFailures = {
		{ "not a hash\n", "setup.sh" },				// invalid hash file
		{ QByteArray(), "setup.sh" },				// no hash file (not written below)
		{ md5Hex(installer), "nothing.sh" }			// no installer
	};
	for (const auto & f : otherFailures) {
		const QString md5Path = QDir(dir).filePath(f.second + ".md5");
		QFile::remove(md5Path);
		if (!f.first.isEmpty()) {
			ASSERT_TRUE(writeFile(md5Path, f.first));
		}
		ZEB::Exception ex = installFailure(dir, f.second);
		EXPECT_EQ(ex.messages().size(), 2u) << f.second.toStdString();
		EXPECT_EQ(std::string(ex.what()), "Error installing update.");
	}
}
