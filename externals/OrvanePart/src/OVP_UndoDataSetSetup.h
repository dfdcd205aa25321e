#ifndef OVP_UndoDataSetSetupH
#define OVP_UndoDataSetSetupH

#include <memory>

#include <QCoreApplication>
#include <QString>

#include "OVP_DataSetSetup.h"
#include "OVP_Mapper.h"
#include "OVP_UndoCommand.h"

namespace OVP {

/*! The change of how one extractor entry of a chart is set up (Mapper::setDataSetSetup()), from
	an old to a new setup. The text names what changed and the series, e.g. "change time point of
	'Wall temperature'". Each step is prepared first (the new entry is built and checked), so that
	a step that cannot be done (a file vanished meanwhile) is told before anything changes.
*/
class UndoDataSetSetup : public UndoCommand {
	Q_DECLARE_TR_FUNCTIONS(UndoDataSetSetup)
public:
	/*! The change of entry entryIndex of the mapper at mapperIndex (both must exist). */
	UndoDataSetSetup(ProjectHandler & handler, int mapperIndex, unsigned int entryIndex,
					 const DataSetSetup & oldSetup, const DataSetSetup & newSetup);
	~UndoDataSetSetup() override;

	/*! Builds the entry of the old setup; throws ZEB::Exception when it cannot be built. */
	void prepareUndo() override;
	/*! Builds the entry of the new setup; throws ZEB::Exception when it cannot be built. */
	void prepareRedo() override;

	/*! "change time point of '<name>'", or of what else differs between the setups; "change data
		set of '<name>'" when several things differ.
	*/
	static QString changeText(const DataSetSetup & oldSetup, const DataSetSetup & newSetup, const QString & name);

protected:
	void doRedo() override;
	void doUndo() override;

private:
	/*! Builds the entry of a setup unless it is built already for the same direction. */
	void prepare(const DataSetSetup & setup, bool undoing);
	/*! Puts the prepared entry in place and announces it. */
	void apply();

	int				m_mapperIndex;
	unsigned int	m_entryIndex;
	DataSetSetup	m_oldSetup;
	DataSetSetup	m_newSetup;
	/*! The entry built by the last preparation, for the step it was built for. */
	std::unique_ptr<Mapper::PreparedSetup>	m_prepared;
	bool			m_preparedForUndo = false;
};

} // namespace OVP

#endif // OVP_UndoDataSetSetupH
