#ifndef ZEB_NotificationHandlerH
#define ZEB_NotificationHandlerH

namespace ZEB {

/*! Receives the progress of long operations (file reading, extraction) as a fraction 0..1.
	The default implementation ignores it; a user interface derives from it to show a bar.
*/
class NotificationHandler {
public:
	virtual ~NotificationHandler() = default;
	/*! Called with the fraction of the work done so far, between 0 and 1. */
	virtual void notify(double fraction) { (void)fraction; }
};

} // namespace ZEB

#endif // ZEB_NotificationHandlerH
