#ifndef EMF_TestUtilsH
#define EMF_TestUtilsH

#include <functional>

#include <gtest/gtest.h>

#include <QFile>
#include <QPainter>
#include <QProcess>
#include <QStandardPaths>

#include <EMF_PaintDevice.h>

#include "EMF_TestParser.h"

namespace EmfTest {

/*! Path of a file in the test's scratch directory. */
inline QString scratchFile(const QString & name) {
	return qEnvironmentVariable("ORVANE_TEST_SCRATCH") + "/" + name;
}

/*! Paints with the given function on a device of the given size and parses the result; a file
	that is not written or breaks a rule of the format fails the test. */
inline File paintAndParse(const QString & name, const QSize & size, const std::function<void(QPainter &)> & paint,
						  double dpi = 96.0, EMF::PaintDevice::BoundsMode mode = EMF::PaintDevice::PictureBounds,
						  const QString & title = QString())
{
	const QString path = scratchFile(name);
	EMF::PaintDevice dev(path, size, dpi);
	dev.setBoundsMode(mode);
	if (!title.isEmpty())
		dev.setTitle(title);
	{
		QPainter p(&dev);
		paint(p);
	}
	File f;
	if (!dev.isWritten() || dev.hasError())
		ADD_FAILURE() << "device did not write the file: " << dev.errorMessage();
	else
		EXPECT_TRUE(f.parseFile(path)) << name.toStdString() << ":\n" << f.errorText();
	return f;
}

/*! Path of emf2svg-conv, or empty when it is not installed. */
inline QString emf2svg() {
	return QStandardPaths::findExecutable("emf2svg-conv");
}

/*! Converts an EMF file to SVG with emf2svg-conv; returns the SVG text or an empty string. */
inline QString convertToSvg(const QString & emfPath, const QString & svgPath, QString * log = nullptr) {
	QProcess proc;
	proc.start(emf2svg(), QStringList() << "-i" << emfPath << "-o" << svgPath);
	bool ok = proc.waitForFinished(60000) && proc.exitStatus() == QProcess::NormalExit && proc.exitCode() == 0;
	if (log)
		*log = QString::fromLocal8Bit(proc.readAllStandardError() + proc.readAllStandardOutput());
	if (!ok)
		return QString();
	QFile f(svgPath);
	if (!f.open(QIODevice::ReadOnly))
		return QString();
	return QString::fromUtf8(f.readAll());
}

} // namespace EmfTest

#endif // EMF_TestUtilsH
