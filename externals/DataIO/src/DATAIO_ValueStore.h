#ifndef DATAIO_ValueStoreH
#define DATAIO_ValueStoreH

#include <cstddef>
#include <vector>

namespace DATAIO {

/*! The values of all time points of a container: one row of n doubles per time point in a
	single row-major buffer, and a flag per row that tells whether the row has been loaded.

	The buffer is allocated without initialisation, so the operating system commits its memory
	page by page only when rows are written: loading a few time points of a large file costs
	memory for those rows only, and loading all of them yields one contiguous array that can be
	handed out without copying. Rows added later (a growing file) enlarge the buffer on the next
	write, which may move it.
*/
class ValueStore {
public:
	ValueStore() = default;
	~ValueStore();
	ValueStore(const ValueStore &) = delete;
	ValueStore & operator=(const ValueStore &) = delete;
	ValueStore(ValueStore && other) noexcept;
	ValueStore & operator=(ValueStore && other) noexcept;

	/*! Removes all rows and sets the number of values per row. */
	void reset(std::size_t valuesPerRow);
	/*! Replaces all rows by the given number of rows in values (row-major, valuesPerRow() each,
		so values holds rows*valuesPerRow() doubles), all loaded, taking over its storage instead
		of copying it.
	*/
	void adopt(std::vector<double> && values, std::size_t rows);
	/*! Sets the number of rows; rows added are not loaded. */
	void resize(std::size_t rows);
	std::size_t rows() const { return m_loaded.size(); }
	std::size_t valuesPerRow() const { return m_n; }

	bool isLoaded(std::size_t row) const { return m_loaded[row]; }
	/*! True when every row is loaded. */
	bool allLoaded() const { return m_loadedCount == m_loaded.size(); }

	/*! The values of a row (valid until the store changes size). */
	const double * row(std::size_t r) const;
	/*! Writable storage of a row; allocates or enlarges the buffer when needed. */
	double * rowForWriting(std::size_t r);
	/*! Marks a row whose values have been written as loaded. */
	void setLoaded(std::size_t r);
	/*! Removes rows [from, to) and shifts the following ones; all rows must be loaded. */
	void erase(std::size_t from, std::size_t to);
	/*! The whole buffer, all rows back to back (only meaningful when all are loaded). */
	const double * buffer() const { return m_buffer != nullptr ? m_buffer : &m_empty; }

private:
	/*! Makes the buffer hold all current rows. */
	void ensureCapacity();

	/*! Frees the buffer, whether malloc'ed or adopted. */
	void release();

	double *			m_buffer = nullptr;		///< malloc'ed, m_capacityRows rows, or m_adopted's
	/*! Storage taken over by adopt(); m_buffer points into it until the rows grow. */
	std::vector<double>	m_adopted;
	std::size_t			m_capacityRows = 0;
	std::size_t			m_n = 0;
	std::vector<bool>	m_loaded;
	std::size_t			m_loadedCount = 0;
	double				m_empty = 0;			///< target of row() for rows of zero values
};

} // namespace DATAIO

#endif // DATAIO_ValueStoreH
