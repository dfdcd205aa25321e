#ifndef EMF_TestUtilsH
#define EMF_TestUtilsH

#include <functional>

#include <gtest/gtest.h>

#include <QFile>
#include <QPainter>

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
						  double dpi = 96.0, const QString & title = QString())
{
	const QString path = scratchFile(name);
	EMF::PaintDevice dev(path, size, dpi);
	if (!title.isEmpty())
		dev.setTitle(title);
	{
		QPainter p(&dev);
		paint(p);
	}
	File f;
	QFile file(path);
	if (!dev.isWritten() || dev.hasError() || !file.open(QIODevice::ReadOnly))
		ADD_FAILURE() << "device did not write the file: " << dev.errorMessage();
	else
		EXPECT_TRUE(f.parse(file.readAll())) << name.toStdString() << ":\n" << f.errorText();
	return f;
}

} // namespace EmfTest

#endif // EMF_TestUtilsH
