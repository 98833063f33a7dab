target_sources(platform PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/program_start.cpp
  ${CMAKE_CURRENT_LIST_DIR}/registry_call_checks.cpp
  ${CMAKE_CURRENT_LIST_DIR}/registry_calls.cpp
  ${CMAKE_CURRENT_LIST_DIR}/registry_delete_calls.cpp
  ${CMAKE_CURRENT_LIST_DIR}/registry_editor.cpp
  ${CMAKE_CURRENT_LIST_DIR}/registry_handles.cpp
  ${CMAKE_CURRENT_LIST_DIR}/registry_key.cpp
  ${CMAKE_CURRENT_LIST_DIR}/registry_names.cpp
  ${CMAKE_CURRENT_LIST_DIR}/registry_script_keys.cpp
  ${CMAKE_CURRENT_LIST_DIR}/registry_script_value.cpp
  ${CMAKE_CURRENT_LIST_DIR}/registry_store.cpp
  ${CMAKE_CURRENT_LIST_DIR}/registry_text_reader.cpp
  ${CMAKE_CURRENT_LIST_DIR}/registry_text_writer.cpp
  ${CMAKE_CURRENT_LIST_DIR}/registry_value_calls.cpp
  ${CMAKE_CURRENT_LIST_DIR}/registry_value_index.cpp)
