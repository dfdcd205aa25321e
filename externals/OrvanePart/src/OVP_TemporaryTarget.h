#ifndef OVP_TemporaryTargetH
#define OVP_TemporaryTargetH

#include <string>

#include <QString>

namespace OVP {

/*! A file that is written under a temporary name beside its target and renamed onto the target
	only when it is complete (commit()), so that an interrupted or failed write never leaves a
	partial file: the temporary file is removed again unless it was committed. The rename within
	one folder replaces an existing target in one step.
*/
class TemporaryTarget {
public:
	/*! Creates the temporary file beside the target. Throws ZEB::Exception naming the target
		when its folder does not exist or no file can be created there, or when the target is a
		folder.
	*/
	explicit TemporaryTarget(const QString & target);
	/*! Removes the temporary file unless it was committed. */
	~TemporaryTarget();
	TemporaryTarget(const TemporaryTarget &) = delete;
	TemporaryTarget & operator=(const TemporaryTarget &) = delete;

	/*! The path of the temporary file in the form the standard streams open. */
	std::string path() const;
	/*! The target as given. */
	const QString & target() const { return m_target; }

	/*! Renames the temporary file onto the target. Throws ZEB::Exception when that fails. */
	void commit();

private:
	QString		m_target;
	QString		m_temporary;
	bool		m_committed = false;
};

} // namespace OVP

#endif // OVP_TemporaryTargetH
