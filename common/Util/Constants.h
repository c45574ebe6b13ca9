// SPDX-License-Identifier: Apache-2.0
// Strings that several modules share: application ids, operations, keys and values of extras, files.
#pragma once

namespace Constants {

namespace App {
inline constexpr char UI[] = "org.tizen.orvane-da";
inline constexpr char HOME_SCREEN[] = "org.tizen.menu-screen";
inline constexpr char RECIPE_WEB_DATABASE[] = "org.tizen.webdatabaseserviceapp";
inline constexpr char RECIPE_SERVICE[] = "org.tizen.recipesvc";
inline constexpr char RECIPE_WEBLINK_MARMITON[] = "org.tizen.WeblinkApps-Marmiton";
inline constexpr char RECIPE_WEBLINK_ALLRECIPES[] = "org.tizen.WeblinkApps-Allrecipes";
// Application ids that the build sets.
inline constexpr char RECIPE_PARTNER_DELICOOK[] = ORVANE_RECIPE_DELICOOK_ID;
inline constexpr char RECIPE_PARTNER_GENERAL[] = ORVANE_RECIPE_GENERAL_ID;
inline constexpr char RECIPE_PARTNER_KOREA[] = ORVANE_RECIPE_KOREA_ID;
inline constexpr char ACCOUNT_SERVICE[] = ORVANE_ACCOUNT_SERVICE_ID;
// Replaces an application id if the country has no recipe application.
inline constexpr char RECIPE_NOT_SUPPORTED[] = "RecipeNotSupported";
// Not the id of any application, so filtering by it removes every command.
inline constexpr char RECIPE_NOBODY[] = "this text is used that remove matched command list all";
}  // namespace App

#define ORVANE_OPERATION_BASE "http://orvane.example"
namespace Operation {
inline constexpr char START_VOICE_ENGINE[] = ORVANE_OPERATION_BASE "/appcontrol/operation/start_voice_engine";
inline constexpr char STOP_VOICE_ENGINE[] = ORVANE_OPERATION_BASE "/appcontrol/operation/stop_voice_engine";
inline constexpr char CLOSE_VOICE_ENGINE[] = ORVANE_OPERATION_BASE "/appcontrol/operation/close_voice_engine";
inline constexpr char CANCEL_VOICE_ENGINE[] = ORVANE_OPERATION_BASE "/appcontrol/operation/cancel_voice_engine";
inline constexpr char TRIGGER_SHOT_VOICE[] = ORVANE_OPERATION_BASE "/appcontrol/operation/trigger_shot/voice";
inline constexpr char TRIGGER_SHOT_TOUCH[] = ORVANE_OPERATION_BASE "/appcontrol/operation/trigger_shot/touch";
inline constexpr char STATE_CHANGE[] = ORVANE_OPERATION_BASE "/appcontrol/operation/state_change";
inline constexpr char PARTIAL_RESULT[] = ORVANE_OPERATION_BASE "/appcontrol/operation/partial_result";
inline constexpr char SPEECH_DETECTED[] = ORVANE_OPERATION_BASE "/appcontrol/operation/speech_detected";
inline constexpr char LANG_CHANGE[] = ORVANE_OPERATION_BASE "/appcontrol/operation/lang_change";
inline constexpr char REFRESH_VIEW_TIMEOUT[] = ORVANE_OPERATION_BASE "/appcontrol/operation/refresh_view_timeout";
inline constexpr char CLOSE_APP[] = ORVANE_OPERATION_BASE "/appcontrol/operation/close_app";
// An operation of the account service, which is not a URI.
inline constexpr char GET_SERVICE_STATUS[] = "get_service_status";
}  // namespace Operation

namespace Key {
inline constexpr char START_MODE[] = "key_start_mode";
inline constexpr char CURRENT_VOLUME[] = "current_volume";
inline constexpr char LANG_CHANGE[] = "key_lang_change";
inline constexpr char VOL_VAL[] = "key_vol_val";
inline constexpr char STATE_CHANGE[] = "key_state_change";
inline constexpr char PARTIAL_RESULT[] = "key_partial_result";
inline constexpr char IS_FINAL_RESULT[] = "key_is_final_result";
inline constexpr char ERROR_TYPE[] = "key_error_type";
inline constexpr char STOP_TTS[] = "key_stop_tts";
inline constexpr char OPERATION[] = "operation";
}  // namespace Key

// The ways to start a recognition session.
namespace StartMode {
inline constexpr char DEFAULT[] = "Default";
inline constexpr char PTT[] = "PTT";
inline constexpr char CLEAR_CONTEXT[] = "ClearContext";
}  // namespace StartMode

namespace State {
inline constexpr char IDLE[] = "Idle";
inline constexpr char INIT[] = "Init";
inline constexpr char READY[] = "Ready";
inline constexpr char RECORDING[] = "Recording";
inline constexpr char PROCESSING[] = "Processing";
inline constexpr char ERROR[] = "Error";
inline constexpr char STAND_BY[] = "StandBy";
}  // namespace State

namespace Error {
inline constexpr char NONE[] = "None";
inline constexpr char DEFAULT[] = "Default";
inline constexpr char MIC_OFF[] = "MicOff";
inline constexpr char WIFI_OFF[] = "WifiOff";
inline constexpr char RECORDING_TIMEOUT[] = "RecordingTimeout";
inline constexpr char PROCESSING_TIMEOUT[] = "ProcessingTimeout";
inline constexpr char SERVICE_NOT_READY[] = "ServiceNotReady";
inline constexpr char NO_RESULT_JSON[] = "NoResultJson";
inline constexpr char SERVER_CRASHED[] = "ServerCrashed";
}  // namespace Error

// Stands for a start mode, state, or error without a name.
inline constexpr char UNKNOWN[] = "UNKNOWN";

namespace Port {
inline constexpr char PARTIAL[] = "partial";
}

namespace File {
inline constexpr char RESULT_JSON[] = "/tmp/Result_Orvane_json.txt";
inline constexpr char VOLUME[] = "/tmp/OrvaneVolume.tmp";
// Paths in the data root.
inline constexpr char PRELOADED_COMMANDS[] = "voice/data/preloaded_commands.txt";
inline constexpr char WAKEUP_DATA[] = "voice/data/";
inline constexpr char WAKEUP_CONFIG[] = "vocon_config.json";
}  // namespace File

// Directories of the wake engine's data, in File::WAKEUP_DATA.
namespace LanguageFolder {
inline constexpr char KOREAN[] = "KOK";
inline constexpr char AMERICAN[] = "ENU";
inline constexpr char BRITISH[] = "ENG";
inline constexpr char GERMAN[] = "GED";
inline constexpr char ITALIAN[] = "ITI";
inline constexpr char FRENCH[] = "FRF";
}  // namespace LanguageFolder

// The recognizer's error messages.
namespace RecognizerError {
inline constexpr char SERVER_TIMED_OUT[] = "Server timed out!";
inline constexpr char NETWORK_TIMEOUT[] = "network_timeout_exception";
inline constexpr char CONNECTION_FAIL[] = "connection_fail_exception";
inline constexpr char ASR_TIMED_OUT[] = "612: ASR timed out";
inline constexpr char NLU_EXCEPTION[] = "NLU Exception";
inline constexpr char UNKNOWN_ERROR[] = "Unknown error 1";
inline constexpr char SERVER_SIDE_PREPARE[] = "server_side_prepare_exception";
}  // namespace RecognizerError

namespace Web {
inline constexpr char SEARCH_PAGE[] = "https://www.google.com/search?q=";
}

}  // namespace Constants
