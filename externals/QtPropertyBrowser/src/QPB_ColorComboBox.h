#ifndef QPB_ColorComboBoxH
#define QPB_ColorComboBoxH

#include <QColor>
#include <QComboBox>

namespace QPB {

/*! The editor of a colour: the named colours of ColorType with swatches, the current colour
	when it has no name (named by its hex code), and "Other...", which opens the colour dialog at
	the current colour. A colour from the dialog becomes the current entry; a cancelled dialog
	leaves the colour as it was.
*/
class ColorComboBox : public QComboBox {
	Q_OBJECT
public:
	/*! An editor; alpha lets the dialog choose partly transparent colours. */
	explicit ColorComboBox(bool alpha, QWidget * parent = nullptr);

	/*! Makes color the current entry, adding an entry for it when it has no name. */
	void setColor(const QColor & color);
	/*! The colour of the current entry. */
	QColor color() const { return m_color; }

private:
	/*! Asks the colour dialog when "Other..." was chosen. */
	void choose(int index);
	/*! The row of "Other...". */
	int otherRow() const { return count() - 1; }

	bool	m_alpha;
	/*! The colour of the current entry, kept while "Other..." is current. */
	QColor	m_color;
};

} // namespace QPB

#endif // QPB_ColorComboBoxH
