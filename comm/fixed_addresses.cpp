#include "comm/fixed_addresses.h"

namespace quillet {

const char* const newsSite = QUILLET_NEWS_SITE;
const char* const mailRelay = QUILLET_MAIL_RELAY;
const char* const website = QUILLET_WEBSITE;

} // namespace quillet
