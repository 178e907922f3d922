// All the doors of one machine, handed to the program at its start.
#pragma once

#include "platform/byte_files.h"
#include "platform/calibration_tone.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/event_queue.h"
#include "platform/file_system.h"
#include "platform/filter_graph.h"
#include "platform/media_controls.h"
#include "platform/notification_icon.h"
#include "platform/output_file.h"
#include "platform/picture_loader.h"
#include "platform/power_request.h"
#include "platform/settings_store.h"
#include "platform/sound_capture.h"
#include "platform/text_encoding.h"
#include "platform/window_host.h"

namespace nerolith::platform {

/// References to doors that outlive the program. Parts are handed the single doors they need.
struct Machine {
  FilterGraphFactory& graphs;
  FileSystem& files;
  SettingsStore& settings;
  Dialogs& dialogs;
  PictureLoader& pictures;
  Clock& clock;
  EventQueue& events;
  WindowHost& windows;
  ByteFiles& bytes;
  TextEncoding& encoding;
  SoundCapture& capture;
  CalibrationTone& tone;
  OutputFiles& output;
  MediaControls& media;
  PowerRequest& power;
  NotificationIcon& icon;
};

}  // namespace nerolith::platform
