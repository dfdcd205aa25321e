#ifndef Sci_ExportSettingsH
#define Sci_ExportSettingsH

#include <QSize>
#include <QSizeF>
#include <QString>
#include <QStringList>

namespace SCI {

/*! What the export dialog takes over from its last use: the program keeps it while it runs, so
	that the dialog opens again with the file name, tab and sizes last used, and the last used
	vector sizes across runs (in its settings).
*/
struct ExportSettings {
	/*! Tabs of the dialog. */
	enum Tab {
		BitmapTab	= 0,
		VectorTab	= 1
	};

	QString		m_fileName;
	Tab			m_tab = BitmapTab;
	/*! Bitmap size in pixels; empty: the chart's size on screen. */
	QSize		m_bitmapSize;
	/*! Bitmap resolution in dots per inch; 0: the screen's resolution. */
	int			m_resolution = 0;
	/*! Vector graphics size in millimetres; empty: the chart's size on screen. */
	QSizeF		m_vectorSizeMM;
	/*! Last used vector sizes, newest first, as ExportDimensionHistory entries. */
	QStringList	m_dimensionHistory;
};

} // namespace SCI

#endif // Sci_ExportSettingsH
