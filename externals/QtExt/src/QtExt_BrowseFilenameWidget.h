#ifndef QtExt_BrowseFilenameWidgetH
#define QtExt_BrowseFilenameWidgetH

#include <QWidget>

class QLineEdit;
class QToolButton;

namespace QtExt {

/*! A path field: a line edit and a "..." button that opens the file dialog of the mode (open a
	file, save a file, choose a folder). The path can also be typed; every change, typed or
	chosen, is announced by filenameChanged(). In the open and folder modes a path that does not
	exist (or is of the other kind) is marked and its tool tip tells so.

	Keyboard: Tab reaches the button; F4 in the line edit opens the dialog as well.
*/
class BrowseFilenameWidget : public QWidget {
	Q_OBJECT
public:
	/*! What the path names and which dialog the button opens. */
	enum Mode {
		OpenFile,	///< an existing file
		SaveFile,	///< a file to write, existing or not
		Directory	///< an existing folder
	};

	explicit BrowseFilenameWidget(Mode mode = OpenFile, QWidget * parent = nullptr);

	Mode mode() const { return m_mode; }
	void setMode(Mode mode);
	/*! The file type filter of the dialog, e.g. "Sessions (*.o2);;All files (*)". */
	void setFilter(const QString & filter);
	/*! The caption of the dialog. */
	void setCaption(const QString & caption);

	QString filename() const;
	/*! Shows a path (announced like a typed one). */
	void setFilename(const QString & filename);
	/*! True when the path names what the mode asks for: an existing file or folder; in the save
		mode any path that is not a folder.
	*/
	bool isAcceptable() const;

	QLineEdit * lineEdit() const { return m_edit; }

signals:
	/*! The path changed, typed or chosen in the dialog. */
	void filenameChanged(const QString & filename);

public slots:
	/*! Opens the dialog of the mode, starting at the path (or the nearest existing folder above
		it); a chosen path replaces the text.
	*/
	void browse();

protected:
	bool eventFilter(QObject * watched, QEvent * event) override;

private:
	/*! Marks the path and sets its tool tip. */
	void updateMarking();
	/*! Where the dialog starts: the path itself when it exists (or, when saving, its folder
		does), else the nearest existing folder above it.
	*/
	QString startPath() const;

	Mode			m_mode;
	QString			m_filter;
	QString			m_caption;
	QLineEdit *		m_edit;
	QToolButton *	m_button;
};

} // namespace QtExt

#endif // QtExt_BrowseFilenameWidgetH
