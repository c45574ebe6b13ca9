// SPDX-License-Identifier: Apache-2.0
/* Voice control: errors and commands. */
#pragma once

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef enum {
    VC_ERROR_NONE = 0,
    VC_ERROR_OUT_OF_MEMORY = -12,
    VC_ERROR_IO_ERROR = -5,
    VC_ERROR_INVALID_PARAMETER = -22,
    VC_ERROR_TIMED_OUT = -110,
    VC_ERROR_RECORDER_BUSY = -16,
    VC_ERROR_PERMISSION_DENIED = -13,
    VC_ERROR_NOT_SUPPORTED = -901,
    VC_ERROR_INVALID_STATE = -902,
    VC_ERROR_INVALID_LANGUAGE = -903,
    VC_ERROR_ENGINE_NOT_FOUND = -904,
    VC_ERROR_OPERATION_FAILED = -905,
    VC_ERROR_OPERATION_REJECTED = -906,
    VC_ERROR_ITERATION_END = -907,
    VC_ERROR_EMPTY = -908,
} vc_error_e;

typedef enum {
    VC_CMD_TYPE_SYSTEM = 4, /* carried out by the service that owns the recognition session */
} vc_cmd_type_e;

typedef enum {
    VC_CMD_FORMAT_DOMAIN = 5, /* "#" and the name of a domain, not a sentence that a person says */
} vc_cmd_format_e;

/* A command, and a list of commands with one cursor. One thread at a time may use a handle. */
typedef struct vc_cmd_s* vc_cmd_h;
typedef struct vc_cmd_list_s* vc_cmd_list_h;

/* All functions return vc_error_e. */
int vc_cmd_create(vc_cmd_h* command);
int vc_cmd_destroy(vc_cmd_h command);
int vc_cmd_set_command(vc_cmd_h command, const char* text);
int vc_cmd_set_type(vc_cmd_h command, vc_cmd_type_e type);
int vc_cmd_set_format(vc_cmd_h command, vc_cmd_format_e format);
/* The process that registered the command. Unchanged on failure. */
int vc_cmd_get_pid(vc_cmd_h command, int* pid);
/* The recognizer's result. The caller frees the string with free(); null if the command has no JSON. */
int vc_cmd_get_nlu_json(vc_cmd_h command, char** json);

int vc_cmd_list_create(vc_cmd_list_h* list);
/* release_command: also destroys the commands in the list. */
int vc_cmd_list_destroy(vc_cmd_list_h list, bool release_command);
int vc_cmd_list_add(vc_cmd_list_h list, vc_cmd_h command);
/* Removes the command from the list without destroying it. */
int vc_cmd_list_remove(vc_cmd_list_h list, vc_cmd_h command);
/* VC_ERROR_EMPTY if the list is empty; VC_ERROR_ITERATION_END after the last command. */
int vc_cmd_list_first(vc_cmd_list_h list);
int vc_cmd_list_next(vc_cmd_list_h list);
/* The list keeps ownership of the command. */
int vc_cmd_list_get_current(vc_cmd_list_h list, vc_cmd_h* command);

#ifdef __cplusplus
}
#endif
