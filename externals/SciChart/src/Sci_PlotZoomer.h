#ifndef Sci_PlotZoomerH
#define Sci_PlotZoomerH

#include <qwt_plot_zoomer.h>

namespace SCI {

/*! Rubber-band zoom of a chart: drag with the left mouse button to zoom in; a right click goes
	back one step, shift and right click forward again, ctrl and right click back to the full
	view. The zoomer works on the x axis and one y axis; a second y axis can be set that zooms
	along, so that curves on both y axes stay in place relative to each other.
*/
class PlotZoomer : public QwtPlotZoomer {
public:
	/*! A zoomer on the bottom and left axes of the plot that owns canvas. */
	explicit PlotZoomer(QWidget * canvas);

	/*! The y axis (plot axis id) that follows the zoom of the zoomer's y axis, -1 for none. */
	void setSecondaryYAxis(int axisId) { m_secondaryYAxis = axisId; }

protected:
	/*! Zooms the secondary y axis to the part that matches the zoomer's y axis, then applies the
		zoom rectangle. The full view (zoom index 0) is left to the chart, which restores the
		axis settings of its model. */
	void rescale() override;

private:
	int	m_secondaryYAxis = -1;
};

} // namespace SCI

#endif // Sci_PlotZoomerH
