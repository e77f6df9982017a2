"""What a client asks of a controller, in the order in which it asks."""

import enum


class Step(enum.Enum):
    AUTHENTICATION_CAPABILITIES = "Get Channel Authentication Capabilities"
    OPEN_SESSION = "Open Session"
    RAKP_1 = "RAKP 1"
    RAKP_3 = "RAKP 3"
    SET_PRIVILEGE = "Set Session Privilege Level"
    COMMAND = "bus status"
    OTHER_COMMAND = "other command"
    CLOSE_SESSION = "Close Session"


LOG_IN = (
    Step.AUTHENTICATION_CAPABILITIES,
    Step.OPEN_SESSION,
    Step.RAKP_1,
    Step.RAKP_3,
    Step.SET_PRIVILEGE,
)
