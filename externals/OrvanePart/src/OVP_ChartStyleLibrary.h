#ifndef OVP_ChartStyleLibraryH
#define OVP_ChartStyleLibraryH

#include <QCoreApplication>
#include <QString>
#include <QStringList>

class QWidget;

namespace SCI {
class AbstractChartModel;
}

namespace OVP {

class UserInteraction;

/*! The chart styles the user saved by name: the files "<name>.o2style" in one directory of the
	user's data area, from which they are applied to other charts.
*/
class ChartStyleLibrary {
	Q_DECLARE_TR_FUNCTIONS(ChartStyleLibrary)
public:
	/*! The library in directory (created when the first style is saved). */
	explicit ChartStyleLibrary(const QString & directory);

	const QString & directory() const { return m_directory; }
	/*! The style files of the library, sorted by name. */
	QStringList styleFiles() const;

	/*! Saves the style of model under a name that the user enters; a name in use is only
		replaced when the user agrees. Returns the file written, empty when the user cancelled.
		Throws ZEB::Exception when the directory cannot be made or the file cannot be written.
	*/
	QString saveStyle(QWidget * parent, UserInteraction & userInteraction, SCI::AbstractChartModel & model) const;

private:
	QString	m_directory;
};

} // namespace OVP

#endif // OVP_ChartStyleLibraryH
