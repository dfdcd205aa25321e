#ifndef Sci_ExportTestSupportH
#define Sci_ExportTestSupportH

#include <functional>
#include <memory>

#include <QColor>
#include <QImage>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QVector>

#include <Sci_MessageBoxReporter.h>

class QwtPlot;

namespace SciTest {

/*! Colours of the test plot, distinct so that each part can be found in a rendering. */
extern const QColor PLOT_BACKGROUND;
extern const QColor CANVAS_BACKGROUND;
extern const QColor CURVE_COLOR;
extern const QColor TITLE_COLOR;

/*! A plot as charts look, 600 x 400 pixels on screen: the dark green bold title "Export Test" at the top, axis
	titles, a red sine curve three pixels wide named "Temperature", a legend at the bottom, a
	light blue plot background and a light yellow canvas.
*/
std::unique_ptr<QwtPlot> createTestPlot();

/*! The plot drawn by the plotting library's renderer straight into an image on white. */
QImage directRender(QwtPlot * plot, const QSize & size);

/*! True when an executable of that name is on the search path. */
bool toolAvailable(const QString & program);
/*! Runs a program, waits up to a minute; true for exit code 0. Its standard output goes to output. */
bool runTool(const QString & program, const QStringList & args, QString * output = nullptr);

/*! Number of pixels in region (the whole image when empty) for which pred holds. */
int countPixels(const QImage & image, const QRect & region, const std::function<bool(const QColor &)> & pred);
/*! Dark (text, axes): grey value below 90. */
bool isDark(const QColor & c);
/*! Close to CURVE_COLOR. */
bool isCurveColor(const QColor & c);
/*! Close to the colour c within tol in each channel. */
bool isNear(const QColor & c, const QColor & ref, int tol = 12);

/*! The strip at the top of an image where the plot title sits (top 10 %, middle half). */
QRect titleRegion(const QImage & image);
/*! Mean absolute grey difference (0..1) of two images after shrinking both to 30 x 20 blocks. */
double blockDifference(const QImage & a, const QImage & b);
/*! Close to TITLE_COLOR. */
bool isTitleColor(const QColor & c);
/*! Height of the box around the pixels in the title's colour, 0 without any. */
int titleTextHeight(const QImage & image);

/*! Records the message boxes instead of showing them. */
class RecordingReporter : public SCI::MessageBoxReporter {
public:
	struct Message {
		QString m_title;
		QString m_text;
	};
	void critical(QWidget *, const QString & title, const QString & text) override {
		m_messages.append(Message{title, text});
	}
	QVector<Message> m_messages;
};

} // namespace SciTest

#endif // Sci_ExportTestSupportH
