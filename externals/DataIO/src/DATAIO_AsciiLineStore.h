#ifndef DATAIO_AsciiLineStoreH
#define DATAIO_AsciiLineStoreH

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace DATAIO {

/*! Holds the unparsed rest of each ASCII data line (everything after the time column) until the
	values of that line are parsed.

	A std::string per line would cost about 48 bytes on top of the text, more than a short line
	itself. The lines are therefore appended back to back into large blocks, and each line keeps
	only its end offset within its block (4 bytes). Every block counts the lines it still holds;
	when the last of them has been released (parsed), the block's memory is freed, so that while
	values are parsed each line is held once, either as text or as numbers.
*/
class AsciiLineStore {
public:
	AsciiLineStore() = default;
	AsciiLineStore(AsciiLineStore &&) noexcept = default;
	AsciiLineStore & operator=(AsciiLineStore &&) noexcept = default;

	/*! Frees all lines. */
	void clear();
	/*! Number of lines appended so far (released ones included). */
	std::size_t size() const { return m_lineEnd.size(); }

	/*! Appends a line; throws when a single line is longer than 4 GB. */
	void append(const char * begin, const char * end);
	/*! Reserves the per-line bookkeeping for about this many further lines. */
	void reserveLines(std::size_t count);
	/*! Gives unused space at the end of the last block back, e.g. after a file was read; the
		block grows again when further lines are appended.
	*/
	void shrinkLastBlock();
	/*! Removes the lines from index count on (used to undo a failed partial read). The caller
		must not have released any of them.
	*/
	void truncate(std::size_t count);
	/*! Removes the last line; released tells whether it had been released. */
	void removeLast(bool released);

	/*! The text of a line that has not been released: [begin, end). */
	void line(std::size_t index, const char *& begin, const char *& end) const;
	/*! Marks a line as no longer needed; frees its block when it was the block's last line.
		The caller releases each line at most once.
	*/
	void release(std::size_t index);

private:
	/*! Frees memory allocated with malloc. */
	struct FreeDeleter {
		void operator()(char * p) const;
	};

	/*! One block of line text. */
	struct Block {
		std::size_t							m_firstLine = 0;	///< index of the block's first line
		std::unique_ptr<char, FreeDeleter>	m_text;				///< null once all lines were released
		std::size_t							m_capacity = 0;
		std::size_t							m_used = 0;
		std::size_t							m_held = 0;			///< lines not yet released
	};

	/*! Index of the block that holds a line. */
	std::size_t blockOf(std::size_t index) const;

	std::vector<Block>			m_blocks;
	std::vector<std::uint32_t>	m_lineEnd;	///< per line: end offset within its block
};

} // namespace DATAIO

#endif // DATAIO_AsciiLineStoreH
