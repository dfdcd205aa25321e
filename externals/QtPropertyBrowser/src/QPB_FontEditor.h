#ifndef QPB_FontEditorH
#define QPB_FontEditorH

#include <QFont>
#include <QWidget>

class QLabel;

namespace QPB {

/*! The editor of a font: the font's text and a "..." button that opens the font dialog at it.
	A font chosen there that differs from the editor's font (in its text form, the one that is
	stored) becomes the editor's font and emits fontChosen().
*/
class FontEditor : public QWidget {
	Q_OBJECT
public:
	explicit FontEditor(QWidget * parent = nullptr);

	/*! Shows font; it is the editor's chosen font until the dialog gives another. */
	void setChosenFont(const QFont & font);
	const QFont & chosenFont() const { return m_font; }

signals:
	/*! The user chose a font in the dialog. */
	void fontChosen();

private:
	/*! Opens the font dialog at the chosen font. */
	void openDialog();

	QFont		m_font;
	QLabel *	m_text;
};

} // namespace QPB

#endif // QPB_FontEditorH
