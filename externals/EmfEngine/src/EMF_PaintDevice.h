#ifndef EMF_PaintDeviceH
#define EMF_PaintDeviceH

#include <memory>

#include <QPaintDevice>
#include <QSize>
#include <QSizeF>
#include <QByteArray>
#include <QString>

#include <ZEB_Exception.h>

namespace EMF {

class PaintEngine;

/*! A paint device that records whatever QPainter draws on it and writes a Windows enhanced
	metafile (EMF) when painting ends.

	The device has a size in pixels and a resolution in dots per inch; QPainter coordinates are
	pixels at that resolution, fonts given in points are sized for it, and the picture's physical
	size is pixels / dpi inches. Inside the file every pixel is subdivided into
	logicalUnitsPerPixel() logical units (by default 1440 units per inch, "twips"), so that thin
	lines, small text and curves keep their precision.

	\code
	EMF::PaintDevice dev("chart.emf", QSize(800, 600), 96);
	QPainter p(&dev);
	renderer.render(plot, &p, QRectF(0, 0, 800, 600));
	p.end();				// the file is written here
	dev.throwIfError();		// ZEB::Exception if the file could not be written
	\endcode

	Errors: a file that cannot be opened makes QPainter::begin() fail, a file that cannot be
	written makes QPainter::end() return false. In both cases the device keeps an error state
	(hasError(), errorMessage()) that throwIfError() turns into a ZEB::Exception, and the error is
	also sent to the ZEB message handler. Every new painting (QPainter::begin) clears the state
	and rewrites the file.
*/
class PaintDevice : public QPaintDevice {
public:
	/*! Creates a device for the given file.
		\param fileName Target file; created or overwritten when painting begins.
		\param sizePx Picture size in pixels, both sides at least 1.
		\param dpi Resolution in dots per inch (> 0); defines the physical size and the size of
			fonts given in points.
		Throws ZEB::Exception for an invalid size or resolution.
	*/
	PaintDevice(const QString & fileName, const QSize & sizePx, double dpi = 96.0);
	/*! Creates a device that keeps the finished picture in memory (data()) instead of writing a
		file, e.g. for the clipboard; size and resolution as above. */
	PaintDevice(const QSize & sizePx, double dpi = 96.0);
	~PaintDevice() override;

	PaintDevice(const PaintDevice &) = delete;
	PaintDevice & operator=(const PaintDevice &) = delete;

	QPaintEngine * paintEngine() const override;

	/*! The target file; empty for a device that keeps its picture in memory. */
	const QString & fileName() const { return m_fileName; }
	/*! The picture of the last painting of a device without file (empty before it ended). */
	const QByteArray & data() const { return m_data; }
	/*! Size in pixels (QPainter coordinates). */
	QSize size() const { return m_sizePx; }
	/*! Resolution in dots per inch. */
	double resolution() const { return m_dpi; }
	/*! Physical size in millimetres. */
	QSizeF sizeMM() const;

	/*! Sets the logical resolution of the file in units per inch (default 1440); values below
		the device resolution are raised to it. Takes effect at the next QPainter::begin().
	*/
	void setLogicalUnitsPerInch(double unitsPerInch);
	double logicalUnitsPerInch() const { return m_unitsPerInch; }
	/*! Logical EMF units per device pixel. */
	double logicalUnitsPerPixel() const;

	/*! Sets the picture name stored in the header's description ("Orvane\0<title>\0\0"). */
	void setTitle(const QString & title) { m_title = title; }
	const QString & title() const { return m_title; }

	/*! True when the last painting could not open or write the file. */
	bool hasError() const { return !m_error.messages().empty(); }
	/*! Message of the last error (empty when there is none). */
	std::string errorMessage() const { return hasError() ? m_error.msgWithOrigin() : std::string(); }
	/*! Throws the stored error as ZEB::Exception; does nothing without error. */
	void throwIfError() const;
	/*! True when the last painting ended with the file completely written. */
	bool isWritten() const { return m_written; }

protected:
	int metric(PaintDeviceMetric metric) const override;

private:
	friend class PaintEngine;
	void clearState();
	void setError(const ZEB::Exception & ex);
	void setWritten() { m_written = true; }
	/*! Keeps the finished picture of a device without file. */
	void setData(const QByteArray & data) { m_data = data; m_written = true; }

	QString							m_fileName;
	QSize							m_sizePx;
	double							m_dpi;
	double							m_unitsPerInch = 1440;
	QString							m_title = QStringLiteral("Chart");
	ZEB::Exception					m_error;
	bool							m_written = false;
	QByteArray						m_data;
	mutable std::unique_ptr<PaintEngine>	m_engine;
};

} // namespace EMF

#endif // EMF_PaintDeviceH
