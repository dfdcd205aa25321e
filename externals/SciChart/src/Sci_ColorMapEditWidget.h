#ifndef Sci_ColorMapEditWidgetH
#define Sci_ColorMapEditWidgetH

#include <memory>

#include <QImage>
#include <QWidget>

#include "Sci_ColorMap.h"

namespace SCI {

class MessageBoxReporter;

/*! Editor of a colour map: the kind (linear map or alpha map), the stops of the linear map
	(position and colour each; the first stop stays at 0, the last at 1), a generator that fills
	the stops from two colours and a number of steps, the colour of the alpha map, a preview bar,
	and the buttons "Save Color Map..." and "Load Color Map..." that write and read colour-map
	files. Every change emits colorMapChanged().
*/
class ColorMapEditWidget : public QWidget {
	Q_OBJECT
public:
	explicit ColorMapEditWidget(QWidget * parent = nullptr);
	~ColorMapEditWidget() override;

	/*! Shows a colour map (no colorMapChanged()). */
	void setColorMap(const ColorMap & colorMap);
	/*! The edited colour map. */
	const ColorMap & colorMap() const { return m_colorMap; }

	/*! Replaces the message boxes, e.g. by a recorder in tests; not owned. Null restores the
		message boxes.
	*/
	void setMessageReporter(MessageBoxReporter * reporter);
	/*! Log file named in the message shown when a colour-map file cannot be read. */
	void setLogFilePath(const QString & logFilePath) { m_logFilePath = logFilePath; }

	/*! Writes the colour map to a colour-map file; a failure is logged and shown, returns false. */
	bool saveColorMap(const QString & path);
	/*! Reads a colour map from a file and shows it; on failure the map stays unchanged, the
		error is logged and shown, and false is returned.
	*/
	bool loadColorMap(const QString & path);

	/*! Draws the colour map from its minimum (left) to its maximum (right); an alpha map is
		drawn over a checkerboard.
	*/
	static QImage previewImage(const ColorMap & colorMap, const QSize & size);

signals:
	/*! The user changed the colour map. */
	void colorMapChanged();

protected:
	/*! Asks the user for a colour; an invalid colour means cancelled. */
	virtual QColor chooseColor(const QColor & initial);

private slots:
	void on_radioButtonLinearMap_toggled(bool checked);
	void on_tableWidgetColorStops_cellChanged(int row, int column);
	void on_tableWidgetColorStops_cellDoubleClicked(int row, int column);
	void on_pushButtonAddStop_clicked();
	void on_pushButtonRemoveStop_clicked();
	void on_toolButtonFirstColor_clicked();
	void on_toolButtonLastColor_clicked();
	void on_pushButtonGenerate_clicked();
	void on_toolButtonAlphaColor_clicked();
	void on_pushButtonSaveColorMap_clicked();
	void on_pushButtonLoadColorMap_clicked();

private:
	struct Ui;

	/*! Builds the widgets. */
	void setupUi();
	/*! Shows m_colorMap in all widgets. */
	void updateUi();
	/*! Shows the colour map in the preview and announces the change. */
	void colorMapEdited();
	/*! The reporter in use. */
	MessageBoxReporter * reporter();

	std::unique_ptr<Ui>					m_ui;
	ColorMap							m_colorMap;
	/*! Colours of the stop generator. */
	QColor								m_firstColor;
	QColor								m_lastColor;
	QString								m_logFilePath;
	/*! Directory of the last saved or loaded colour-map file. */
	QString								m_lastDirectory;
	std::unique_ptr<MessageBoxReporter>	m_defaultReporter;
	MessageBoxReporter *				m_reporter = nullptr;
};

} // namespace SCI

#endif // Sci_ColorMapEditWidgetH
