#ifndef QtExt_ColorListWidgetH
#define QtExt_ColorListWidgetH

#include <QColor>
#include <QListWidget>

namespace QtExt {

/*! A list of named colours, each with a swatch, followed by "Other...", which opens the colour
	dialog (starting at the colour set or chosen last); optionally a first entry "No colour"
	chooses the invalid colour. A click, Enter or Return chooses the entry and emits
	colorChosen(). A colour chosen in the dialog that is not in the list is added before
	"Other...".

	showPopup() shows the list as a small popup window that closes once a colour is chosen or
	on Escape.
*/
class ColorListWidget : public QListWidget {
	Q_OBJECT
public:
	explicit ColorListWidget(QWidget * parent = nullptr);

	/*! Offers "No colour" as first entry (off by default). */
	void setNoColorEntry(bool offered);
	/*! Adds a named colour before "Other...". */
	void addColor(const QString & name, const QColor & color);
	/*! Makes the entry of color current, adding it (named after its hex code) when missing. */
	void setCurrentColor(const QColor & color);
	/*! The colour of the current entry; invalid for "No colour", "Other..." and no entry. */
	QColor currentColor() const;

	/*! Shows the list as a popup window with its top left corner at globalPos. */
	void showPopup(const QPoint & globalPos);

	QSize sizeHint() const override;

signals:
	/*! The user chose a colour (invalid for "No colour"). */
	void colorChosen(const QColor & color);

protected:
	void keyPressEvent(QKeyEvent * event) override;

private:
	/*! Chooses the entry: emits its colour, or asks the colour dialog for "Other...". */
	void choose(QListWidgetItem * item);
	/*! The row of the colour's entry, -1 when missing. */
	int rowOf(const QColor & color) const;
	/*! The row of "Other...". */
	int otherRow() const { return count() - 1; }
	/*! A new entry with a swatch of color (a crossed-out frame for the invalid colour). */
	QListWidgetItem * newItem(const QString & name, const QColor & color) const;
	/*! A transparent pixmap of the icon size. */
	QPixmap emptySwatch() const;
	/*! The swatch of "Other...": four colours in one frame. */
	QIcon otherSwatch() const;

	/*! The colour set or chosen last; the colour dialog starts with it. */
	QColor	m_color;
};

} // namespace QtExt

#endif // QtExt_ColorListWidgetH
