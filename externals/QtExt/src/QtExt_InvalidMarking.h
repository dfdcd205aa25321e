#ifndef QtExt_InvalidMarkingH
#define QtExt_InvalidMarkingH

class QWidget;

namespace QtExt {

/*! Marks an input widget whose content is invalid with a reddish tint of its palette's base
	colour (light on a light base, dark on a dark one, so the text stays readable), or takes the
	mark away. Only the base colour is set; everything else stays inherited.
*/
void setInvalidMarking(QWidget * widget, bool invalid);

} // namespace QtExt

#endif // QtExt_InvalidMarkingH
