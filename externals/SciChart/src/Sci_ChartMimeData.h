#ifndef Sci_ChartMimeDataH
#define Sci_ChartMimeDataH

#include <memory>

#include <QStringList>

class QMimeData;
class QwtPlot;

namespace SCI {

/*! The clipboard content of a chart at the size it has on screen, as a bitmap or as an enhanced
	metafile (EMF). Office programs take metafiles under different names: on Linux as "image/x-emf"
	or "image/emf", on Windows as the registered format "Enhanced Metafile"; the EMF content is
	offered under all of them, with the bitmap as PNG for programs that take none of them.
	Failures are thrown as ZEB::Exception.
*/
class ChartMimeData {
public:
	/*! The MIME types the EMF bytes are offered under. */
	static QStringList emfMimeTypes();

	/*! The chart as image data (QMimeData::imageData()) of its on-screen size. */
	static std::unique_ptr<QMimeData> bitmap(QwtPlot * plot);
	/*! The chart as EMF of its on-screen size under emfMimeTypes(), and as "image/png". */
	static std::unique_ptr<QMimeData> emf(QwtPlot * plot);
};

} // namespace SCI

#endif // Sci_ChartMimeDataH
