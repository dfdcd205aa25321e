#ifndef Sci_AbstractExportWidgetH
#define Sci_AbstractExportWidgetH

#include <QPointer>
#include <QWidget>

#include "Sci_ChartExporter.h"

class QCheckBox;
class QGridLayout;
class QwtPlot;

namespace SCI {

class PositiveNumberLineEdit;

/*! Base of the tabs of the export dialog: it keeps the chart to export with its size and
	proportions on screen and the exporter, announces whether the tab's settings can be
	exported, and builds the widgets that the tabs share (a pair of size edits, check boxes
	across the tab's grid).
*/
class AbstractExportWidget : public QWidget {
	Q_OBJECT
signals:
	/*! The settings became valid (true) or invalid (false). */
	void exportButtonsEnabled(bool enabled);

protected:
	/*! Takes the chart's proportions on screen (1 without a chart). */
	AbstractExportWidget(QwtPlot * plot, QWidget * parent);

	/*! The chart's size on screen, 800 x 600 without a chart; each side at least 1 pixel. */
	QSize screenSize() const;
	/*! The side that keeps the chart's proportions with the other side given. */
	double proportionalHeight(double width) const { return width/m_aspectRatio; }
	double proportionalWidth(double height) const { return height*m_aspectRatio; }

	/*! Creates a width and a height edit named xName and yName in row of grid, in columns 1
		and 3 with an "x" between them.
	*/
	void addSizeEdits(QGridLayout * grid, int row, const char * xName, const char * yName,
					  PositiveNumberLineEdit *& x, PositiveNumberLineEdit *& y);
	/*! Creates a check box named objectName across row of grid. */
	QCheckBox * addCheckBox(QGridLayout * grid, int row, const QString & text, const char * objectName, bool checked);

	QPointer<QwtPlot>	m_plot;
	ChartExporter		m_exporter;

private:
	/*! Width / height of the chart on screen. */
	double				m_aspectRatio = 1;
};

} // namespace SCI

#endif // Sci_AbstractExportWidgetH
