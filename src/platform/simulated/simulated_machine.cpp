#include "platform/simulated/simulated_machine.h"

namespace nerolith::platform::simulated {

SimulatedMachine::SimulatedMachine(char separator)
    : clock(timeline),
      events(timeline, doorway),
      files(separator, doorway),
      decks(files, timeline, doorway),
      settings(doorway),
      dialogs(timeline, doorway),
      pictures(doorway),
      windows(timeline, doorway),
      bytes(files, doorway),
      encoding(separator),
      capture(timeline, doorway),
      tone(doorway),
      output(files, doorway),
      media(doorway),
      power(doorway),
      icon(doorway) {}

Machine SimulatedMachine::doors() {
  return {decks, files,    settings, dialogs, pictures, clock, events, windows,
          bytes, encoding, capture,  tone,    output,   media, power,  icon};
}

}  // namespace nerolith::platform::simulated
