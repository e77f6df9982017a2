#include <platform/service_processor/lan/Format20.h>
#include <platform/service_processor/lan/HandshakeStep.h>
#include <platform/service_processor/lan/LanTrouble.h>
#include <platform/service_processor/lan/LogIn.h>
#include <platform/service_processor/lan/Packet20.h>

#include <algorithm>
#include <string>

namespace platform::lan {

namespace {

constexpr std::size_t kRandomSize = 16;
constexpr std::uint8_t kHighestPrivilege = 0;  // that the cipher suite allows
constexpr std::size_t kPaddedUser = 16;
constexpr unsigned int kShorterPassword = 16;

unsigned int Size(const Bytes& bytes) { return static_cast<unsigned int>(bytes.size()); }

// FreeIPMI requires this before any cryptographic call.
bool CanCompute() {
    static const bool isReady = ipmi_rmcpplus_init() == 0;
    return isReady;
}

// Of a RAKP authentication code.
std::size_t CodeSize(std::uint8_t algorithm) {
    switch (algorithm) {
        case IPMI_AUTHENTICATION_ALGORITHM_RAKP_HMAC_SHA1:
            return IPMI_HMAC_SHA1_DIGEST_LENGTH;
        case IPMI_AUTHENTICATION_ALGORITHM_RAKP_HMAC_MD5:
            return IPMI_HMAC_MD5_DIGEST_LENGTH;
        case IPMI_AUTHENTICATION_ALGORITHM_RAKP_HMAC_SHA256:
            return IPMI_HMAC_SHA256_DIGEST_LENGTH;
        default:
            return 0;
    }
}

// FreeIPMI takes the room for a key, and sets its length; null when the suite needs no such key.
struct KeyRoom {
    explicit KeyRoom(SecretBytes& secret)
        : key(secret), start(secret.Room()), length(secret.RoomSize()) {}
    KeyRoom(const KeyRoom&) = delete;
    KeyRoom& operator=(const KeyRoom&) = delete;
    ~KeyRoom() { key.SetLength(start == nullptr ? 0 : length); }

    SecretBytes& key;
    void* start;
    unsigned int length;
};

class RmcpPlusHandshake {
public:
    RmcpPlusHandshake(const LanAccount& lanAccount, LanChannel& lanChannel);
    RmcpPlusHandshake(const RmcpPlusHandshake&) = delete;
    RmcpPlusHandshake& operator=(const RmcpPlusHandshake&) = delete;
    ~RmcpPlusHandshake();

    std::unique_ptr<LanFormat> Run();

private:
    FiidObject Ask(const HandshakeStep& step, const FiidObject& message);
    std::uint8_t Tag(const HandshakeStep& step) const {
        return static_cast<std::uint8_t>(firstTag + step.number);
    }
    void OpenSession();
    void SwapRandomNumbers();
    void CheckController(FiidObject& answer);
    void ProveOneself();
    void ComputeKeys();
    void CheckKey(const FiidObject& answer) const;
    FiidObject Proof(std::uint8_t status, const SecretBytes& code) const;
    std::uint8_t AlgorithmOfCheckValue() const;

    const char* User() const { return user.empty() ? nullptr : user.data(); }
    unsigned int UserLength() const { return static_cast<unsigned int>(user.size()); }
    unsigned int PasswordLength() const;

    const LanAccount& account;
    LanChannel& channel;
    std::string user;
    const std::uint8_t privilege;
    const std::uint8_t firstTag;
    const Bytes ownRandom;
    Bytes random;              // of the controller
    Bytes guid;                // of the controller
    bool wasRepeated = false;  // the last step
    bool isComplete = false;
    std::uint8_t abortStatus = RMCPPLUS_STATUS_INSUFFICIENT_RESOURCES_TO_CREATE_A_SESSION;
    SecretBytes sessionKey;
    Session20 session;
};

RmcpPlusHandshake::RmcpPlusHandshake(const LanAccount& lanAccount, LanChannel& lanChannel)
    : account(lanAccount),
      channel(lanChannel),
      user(account.controller.user),
      privilege(account.PrivilegeLevel()),
      firstTag(RandomBytes(1).front()),
      ownRandom(RandomBytes(kRandomSize)) {
    if (account.Has("intel20")) user.resize(kPaddedUser);
    session.ownId = RandomId();
    CipherAlgorithms& by = session.algorithms;
    if (!CanCompute() || ipmi_cipher_suite_id_to_algorithms(
                             static_cast<std::uint8_t>(account.controller.cipherSuite),
                             &by.authentication, &by.integrity, &by.confidentiality) < 0) {
        throw Failure(account, kCannotCompute);
    }
}

// A handshake that ends early frees the session in the controller.
RmcpPlusHandshake::~RmcpPlusHandshake() {
    if (isComplete || session.controllerId == 0) return;
    try {
        channel.Send(HandshakePacket(kRakp3.requestType, Proof(abortStatus, {}).All()));
    } catch (...) {
        return;  // the controller's own timeout frees it
    }
}

// Some controllers hash no more of the password.
unsigned int RmcpPlusHandshake::PasswordLength() const {
    const bool isShorter =
        account.Has("intel20") &&
        session.algorithms.authentication == IPMI_AUTHENTICATION_ALGORITHM_RAKP_HMAC_MD5;
    return isShorter ? std::min(account.password.Length(), kShorterPassword)
                     : account.password.Length();
}

// Throws when the controller refuses. One that got a retransmission of the step before may have
// restarted the handshake, so a retry with another session may help.
FiidObject RmcpPlusHandshake::Ask(const HandshakeStep& step, const FiidObject& message) {
    FiidObject answer(step.answerLayout);
    const Bytes packet = HandshakePacket(step.requestType, message.All());
    const LanChannel::Write write = [&] { return packet; };
    const LanChannel::Read read = [&](ByteView received) {
        return ReadHandshake(received, step, {.tag = Tag(step), .session = session.ownId}, answer);
    };
    // A retransmitted Open Session may take a second slot, a retransmitted RAKP 1 another random
    // number.
    const bool isLast = step.number == kRakp3.number;
    const int sent = channel.Exchange(
        write, read, isLast ? LanChannel::Patience::Short : LanChannel::Patience::Long);
    const auto status = static_cast<std::uint8_t>(answer.Number("rmcpplus_status_code"));
    if (status != RMCPPLUS_STATUS_NO_ERRORS) {
        LanFailure refusal = StatusRefused(account, status);
        if (refusal.retry == Retry::Never && wasRepeated) refusal.retry = Retry::Once;
        throw refusal;
    }
    wasRepeated = sent > 1;
    return answer;
}

void RmcpPlusHandshake::OpenSession() {
    const CipherAlgorithms& by = session.algorithms;
    const std::uint8_t asked = account.Has("opensesspriv") ? privilege : kHighestPrivilege;
    const FiidObject message(kOpenSession.requestLayout);
    fill_rmcpplus_open_session(Tag(kOpenSession), asked, session.ownId, by.authentication,
                               by.integrity, by.confidentiality, message.Get());
    const FiidObject answer = Ask(kOpenSession, message);
    session.controllerId = static_cast<std::uint32_t>(answer.Number("managed_system_session_id"));
    if (answer.Number("authentication_payload.authentication_algorithm") != by.authentication ||
        answer.Number("integrity_payload.integrity_algorithm") != by.integrity ||
        answer.Number("confidentiality_payload.confidentiality_algorithm") != by.confidentiality) {
        throw Failure(account, kOtherAlgorithms);
    }
    // Some controllers name no level.
    const std::uint64_t offered = answer.Number("maximum_privilege_level");
    if (offered != 0 && offered < privilege) throw Failure(account, kSuiteIsLimited);
}

void RmcpPlusHandshake::SwapRandomNumbers() {
    const FiidObject message(kRakp1.requestLayout);
    fill_rmcpplus_rakp_message_1(Tag(kRakp1), session.controllerId, ownRandom.data(),
                                 Size(ownRandom), privilege, IPMI_NAME_ONLY_LOOKUP, User(),
                                 UserLength(), message.Get());
    FiidObject answer = Ask(kRakp1, message);
    random = answer.Data("managed_system_random_number");
    guid = answer.Data("managed_system_guid");
    CheckController(answer);
}

// Throws when the controller does not know the password.
void RmcpPlusHandshake::CheckController(FiidObject& answer) {
    constexpr char kCode[] = "key_exchange_authentication_code";
    if (account.Has("supermicro20") || account.Has("sun20")) {
        Bytes code = answer.Data(kCode);
        code.resize(std::min(code.size(), CodeSize(session.algorithms.authentication)));
        answer.SetData(kCode, code);
    }
    const int check = ipmi_rmcpplus_check_rakp_2_key_exchange_authentication_code(
        session.algorithms.authentication, account.password.Text(), PasswordLength(), session.ownId,
        session.controllerId, ownRandom.data(), Size(ownRandom), random.data(), Size(random),
        guid.data(), Size(guid), IPMI_NAME_ONLY_LOOKUP, privilege, User(), UserLength(),
        answer.Get());
    if (check == 1) return;
    abortStatus = RMCPPLUS_STATUS_INVALID_INTEGRITY_CHECK_VALUE;
    throw Failure(account, check == 0 ? kOtherPassword : kCannotCompute);
}

FiidObject RmcpPlusHandshake::Proof(std::uint8_t status, const SecretBytes& code) const {
    FiidObject message(kRakp3.requestLayout);
    fill_rmcpplus_rakp_message_3(Tag(kRakp3), status, session.controllerId, code.Data(),
                                 code.Length(), message.Get());
    return message;
}

void RmcpPlusHandshake::ProveOneself() {
    SecretBytes code;
    const int length = ipmi_calculate_rakp_3_key_exchange_authentication_code(
        session.algorithms.authentication, account.password.Text(), PasswordLength(), random.data(),
        Size(random), session.ownId, IPMI_NAME_ONLY_LOOKUP, privilege, User(), UserLength(),
        code.Room(), code.RoomSize());
    if (length < 0) throw Failure(account, kCannotCompute);
    code.SetLength(static_cast<unsigned int>(length));
    ComputeKeys();
    CheckKey(Ask(kRakp3, Proof(RMCPPLUS_STATUS_NO_ERRORS, code)));
}

void RmcpPlusHandshake::ComputeKeys() {
    const CipherAlgorithms& by = session.algorithms;
    KeyRoom sessionRoom(sessionKey);
    KeyRoom integrityRoom(session.integrityKey);
    KeyRoom confidentialityRoom(session.confidentialityKey);
    if (ipmi_calculate_rmcpplus_session_keys(
            by.authentication, by.integrity, by.confidentiality, account.password.Text(),
            PasswordLength(), account.key.Data(), account.key.Length(), ownRandom.data(),
            Size(ownRandom), random.data(), Size(random), IPMI_NAME_ONLY_LOOKUP, privilege, User(),
            UserLength(), &sessionRoom.start, &sessionRoom.length, &integrityRoom.start,
            &integrityRoom.length, &confidentialityRoom.start, &confidentialityRoom.length) < 0) {
        throw Failure(account, kCannotCompute);
    }
}

// Some controllers take the suite's other algorithm.
std::uint8_t RmcpPlusHandshake::AlgorithmOfCheckValue() const {
    if (!account.Has("intel20")) return session.algorithms.authentication;
    switch (session.algorithms.integrity) {
        case IPMI_INTEGRITY_ALGORITHM_HMAC_SHA1_96:
            return IPMI_AUTHENTICATION_ALGORITHM_RAKP_HMAC_SHA1;
        case IPMI_INTEGRITY_ALGORITHM_HMAC_MD5_128:
            return IPMI_AUTHENTICATION_ALGORITHM_RAKP_HMAC_MD5;
        case IPMI_INTEGRITY_ALGORITHM_NONE:
            return IPMI_AUTHENTICATION_ALGORITHM_RAKP_NONE;
        default:
            return session.algorithms.authentication;
    }
}

// Throws when the controller has other keys.
void RmcpPlusHandshake::CheckKey(const FiidObject& answer) const {
    const std::uint8_t algorithm = AlgorithmOfCheckValue();
    if (algorithm == IPMI_AUTHENTICATION_ALGORITHM_RAKP_NONE &&
        account.Has("integritycheckvalue")) {
        return;
    }
    const int check = ipmi_rmcpplus_check_rakp_4_integrity_check_value(
        algorithm, sessionKey.Data(), sessionKey.Length(), ownRandom.data(), Size(ownRandom),
        session.controllerId, guid.data(), Size(guid), answer.Get());
    if (check == 1) return;
    const Fault& otherKey = account.key.Length() > 0 ? kOtherKey : kKeyNotSet;
    throw Failure(account, check == 0 ? otherKey : kCannotCompute);
}

std::unique_ptr<LanFormat> RmcpPlusHandshake::Run() {
    OpenSession();
    SwapRandomNumbers();
    ProveOneself();
    isComplete = true;
    return std::make_unique<Format20>(account, session);
}

}  // namespace

std::unique_ptr<LanFormat> LogIn20(const LanAccount& account, LanChannel& channel) {
    return RmcpPlusHandshake(account, channel).Run();
}

}  // namespace platform::lan
