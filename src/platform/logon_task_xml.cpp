#include "platform/logon_task.h"

namespace tidemark {
namespace {

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

}  // namespace

// What is not said is as the schema has it, and then a task starts on no battery, ends with it, and
// ends after three days.
std::string LogonTaskXml(const LogonTask& task, std::string_view user) {
  const std::string user_id = "<UserId>" + Escaped(user) + "</UserId>";
  return "<Task version=\"1.2\" xmlns=\"http://schemas.microsoft.com/windows/2004/02/mit/task\">"
         "<RegistrationInfo><Description>Starts Tidemark when its user logs on. Tidemark makes and "
         "removes this task by its option.</Description></RegistrationInfo>"
         "<Triggers><LogonTrigger>" +
         user_id +
         "</LogonTrigger></Triggers>"
         "<Principals><Principal id=\"Author\">" +
         user_id +
         "<LogonType>InteractiveToken</LogonType><RunLevel>HighestAvailable</RunLevel>"
         "</Principal></Principals>"
         "<Settings><MultipleInstancesPolicy>IgnoreNew</MultipleInstancesPolicy>"
         "<DisallowStartIfOnBatteries>false</DisallowStartIfOnBatteries>"
         "<StopIfGoingOnBatteries>false</StopIfGoingOnBatteries>"
         "<ExecutionTimeLimit>PT0S</ExecutionTimeLimit></Settings>"
         "<Actions Context=\"Author\"><Exec><Command>\"" +
         Escaped(task.file) + "\"</Command><Arguments>" + Escaped(task.arguments) +
         "</Arguments></Exec></Actions></Task>";
}

}  // namespace tidemark
