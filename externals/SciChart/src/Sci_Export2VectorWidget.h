#ifndef Sci_Export2VectorWidgetH
#define Sci_Export2VectorWidgetH

#include <memory>

#include <QSizeF>

#include "Sci_AbstractExportWidget.h"
#include "Sci_ExportDimensionHistory.h"

namespace SCI {

/*! The vector graphics tab of the export dialog: size in millimetres (optionally in the chart's
	proportions), background painting, data reduction, the list of last used sizes and a preview
	of the chart laid out for that size.
*/
class Export2VectorWidget : public AbstractExportWidget {
	Q_OBJECT
public:
	/*! Largest width or height of the preview image in pixels. */
	static constexpr int MAX_PREVIEW_SIDE = 800;

	/*! Starts with the chart's size on screen in millimetres. */
	explicit Export2VectorWidget(QwtPlot * plot, QWidget * parent = nullptr);
	~Export2VectorWidget() override;

	/*! Parts of the chart to draw; updates the preview. */
	void setComponents(const ExportComponents & components);

	/*! True when both sides are positive numbers. */
	bool canExport() const;
	/*! The size entered in millimetres; a side that is not a positive number is 0. */
	QSizeF sizeMM() const;
	/*! Shows a size in millimetres. */
	void setSizeMM(const QSizeF & sizeMM);

	/*! The last used sizes offered in "Last used plot dimensions:", newest first. */
	QStringList dimensionHistory() const { return m_history.entries(); }
	void setDimensionHistory(const QStringList & entries);
	/*! Puts the current size at the front of the last used sizes, when both sides are valid. */
	void storeDimensions();
	/*! The exporter with the settings of this tab. */
	const ChartExporter & exporter() const { return m_exporter; }

private slots:
	void on_lineEditMMX_editingFinishedSuccessfully();
	void on_lineEditMMY_editingFinishedSuccessfully();
	void on_checkBoxDataReduction_toggled(bool checked);
	void on_comboBoxLastPlotDimensions_currentIndexChanged(int index);

private:
	struct Ui;

	/*! Builds the widgets. */
	void setupUi();
	/*! Fills the list of last used sizes, with an empty entry first. */
	void updateDimensionHistory();
	/*! Shows the current settings in the preview and announces whether they are valid. */
	void settingsChanged();
	/*! Renders the preview for the current settings. */
	void updatePreview();

	std::unique_ptr<Ui>		m_ui;
	ExportDimensionHistory	m_history;
};

} // namespace SCI

#endif // Sci_Export2VectorWidgetH
