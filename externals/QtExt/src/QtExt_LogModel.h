#ifndef QtExt_LogModelH
#define QtExt_LogModelH

#include <bitset>
#include <deque>

#include <QAbstractListModel>
#include <QString>

namespace QtExt {

/*! The lines of the log panel: the messages of the message handler, one row per line, coloured
	by message type (ZEB::MsgType numbers) and filtered by type.

	It keeps at most maxLines() lines, dropping the oldest ones, so that a flood of messages
	cannot use up the memory. A message of several lines becomes several rows of its type; a
	continuation message (type 1) continues the last line. Message numbers outside the known
	types count as progress messages.
*/
class LogModel : public QAbstractListModel {
	Q_OBJECT
public:
	/*! Number of lines kept by default. */
	static constexpr int DEFAULT_MAX_LINES = 10000;
	/*! Number of message types (ZEB::MsgType 0..4). */
	static constexpr int TYPE_COUNT = 5;
	/*! Role of the message type of a row. */
	static constexpr int TypeRole = Qt::UserRole;

	explicit LogModel(QObject * parent = nullptr);

	/*! Adds a message of a type (see ZEB::MsgType). */
	void append(int type, const QString & text);
	/*! Removes all lines. */
	void clear();

	/*! Sets the number of lines kept (at least 1); drops the oldest lines beyond it. */
	void setMaxLines(int maxLines);
	int maxLines() const { return m_maxLines; }

	/*! Shows or hides the lines of a message type; all types are shown at first. */
	void setTypeShown(int type, bool shown);
	bool isTypeShown(int type) const;

	/*! Number of lines kept, shown or not. */
	int lineCount() const { return static_cast<int>(m_lines.size()); }

	int rowCount(const QModelIndex & parent = QModelIndex()) const override;
	/*! The text (DisplayRole), the colour of its type (ForegroundRole; progress messages have
		none and take the view's) and the type (TypeRole).
	*/
	QVariant data(const QModelIndex & index, int role = Qt::DisplayRole) const override;

private:
	/*! One line of a message. */
	struct Line {
		int		m_type;
		QString	m_text;
	};

	/*! Appends one line; it is a row when its type is shown. */
	void appendLine(int type, const QString & text);
	/*! Drops the oldest lines beyond the maximum, with the rows of those that are shown. */
	void dropOldLines();

	/*! All lines kept, oldest first. */
	std::deque<Line>			m_lines;
	/*! The shown lines, i.e. the rows; elements of m_lines, which keeps them in place as it
		grows and shrinks only at its ends.
	*/
	std::deque<const Line *>	m_rows;
	std::bitset<TYPE_COUNT>		m_shownTypes;
	int							m_maxLines = DEFAULT_MAX_LINES;
};

} // namespace QtExt

#endif // QtExt_LogModelH
