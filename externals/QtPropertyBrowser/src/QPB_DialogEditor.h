#ifndef QPB_DialogEditorH
#define QPB_DialogEditorH

#include <functional>

#include <QIcon>
#include <QVariant>
#include <QWidget>

class QLabel;

namespace QPB {

/*! The editor of a value that is chosen in a dialog of its own: the value's icon and text and a
	"..." button that runs the dialog. A value given back by the dialog becomes the editor's
	value and emits valueChosen(), which the delegate commits at once. Value types of other
	libraries (a colour map, a list of texts) use it with their dialog.
*/
class DialogEditor : public QWidget {
	Q_OBJECT
public:
	/*! Runs the dialog over parent, starting from value; returns the new value, or an invalid
		QVariant when the user cancelled.
	*/
	typedef std::function<QVariant(QWidget * parent, const QVariant & value)> Dialog;

	DialogEditor(const Dialog & dialog, QWidget * parent = nullptr);

	/*! Shows value with its text and icon; it is the editor's value until the dialog gives another. */
	void setValue(const QVariant & value, const QString & text, const QIcon & icon = QIcon());
	const QVariant & value() const { return m_value; }

signals:
	/*! The user chose a new value in the dialog. */
	void valueChosen();

private:
	/*! Runs the dialog and takes a value it gives back. */
	void openDialog();

	Dialog		m_dialog;
	QVariant	m_value;
	QLabel *	m_icon;
	QLabel *	m_text;
};

} // namespace QPB

#endif // QPB_DialogEditorH
