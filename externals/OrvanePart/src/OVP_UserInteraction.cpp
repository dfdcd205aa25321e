#include "OVP_UserInteraction.h"

namespace OVP {

UserInteraction::~UserInteraction() = default;

} // namespace OVP
