#ifndef ConvertDialogH
#define ConvertDialogH

#include <memory>
#include <vector>

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace OVP {
class FieldOutputFile;
}

/*! The data manager's small dialog that converts a field output to a Tecplot file (target file
	and time point range) or writes a slice of it (target file, history or profile, the element
	the cut goes through, the direction and time point of a profile). OK runs the library's
	converter and tells whether it worked; after a failure the dialog stays open.
*/
class ConvertDialog : public QDialog {
	Q_OBJECT
public:
	/*! What the dialog writes. */
	enum Mode {
		M_Tecplot,
		M_Slice
	};

	/*! A dialog for the file, which it keeps. */
	ConvertDialog(Mode mode, std::unique_ptr<OVP::FieldOutputFile> file, QWidget * parent = nullptr);
	~ConvertDialog() override;

	/*! Writes the file; closes the dialog when that worked. */
	void accept() override;

private:
	/*! A combo box listing the time points of the file. */
	QComboBox * timeCombo() const;
	/*! Shows where the element lies, or that the output does not list it; enables the fields of
		the chosen slice kind.
	*/
	void updateSliceFields();
	/*! Lets the user pick the target file. */
	void browse();

	Mode									m_mode;
	std::unique_ptr<OVP::FieldOutputFile>	m_file;
	QLineEdit *								m_target;
	QComboBox *								m_first = nullptr;
	QComboBox *								m_last = nullptr;
	QComboBox *								m_kind = nullptr;
	QSpinBox *								m_element = nullptr;
	QLabel *								m_position = nullptr;
	QComboBox *								m_direction = nullptr;
	QComboBox *								m_time = nullptr;
};

#endif // ConvertDialogH
