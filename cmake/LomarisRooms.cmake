# One static library per room and floor. Every file of the room's folder belongs to it; the one
# include root is src/, so that an include names its room ("core/text.h").

function(lomaris_room target folder)
  cmake_parse_arguments(ARG "" "" "ROOMS;LIBRARIES" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${folder}/*.cpp)
  add_library(${target} STATIC ${sources})
  target_include_directories(${target} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  list(TRANSFORM ARG_ROOMS PREPEND lomaris_)
  target_link_libraries(${target} PUBLIC ${ARG_ROOMS} ${ARG_LIBRARIES})
endfunction()

# lomaris_ground_room(<room> ROOMS <rooms it may include> LIBRARIES <libraries>)
# Its headers are a header file set: each is compiled on its own by the header check.
function(lomaris_ground_room room)
  lomaris_room(lomaris_${room} ${room} ${ARGN})
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${room}/*.h)
  target_sources(lomaris_${room} PUBLIC FILE_SET HEADERS BASE_DIRS ${CMAKE_SOURCE_DIR}/src
                                        FILES ${headers})
endfunction()

# lomaris_upper_room(<room> ROOMS <rooms it may include> LIBRARIES <libraries>)
# Forms (.ui) and resources (.qrc) in the room's folder are built in.
function(lomaris_upper_room room)
  lomaris_room(lomaris_windows_${room} windows/${room} ${ARGN})
  set(target lomaris_windows_${room})
  file(GLOB_RECURSE forms CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/windows/${room}/*.ui)
  file(GLOB_RECURSE resources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/windows/${room}/*.qrc)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/windows/${room}/*.h)
  target_sources(${target} PRIVATE ${headers} ${forms} ${resources})
  set_target_properties(${target} PROPERTIES AUTOMOC ON AUTOUIC ON AUTORCC ON)
  target_link_libraries(${target} PUBLIC Qt6::Widgets)
endfunction()

# lomaris_test(<name> FOLDER <folder under tests/> ROOMS <rooms> LIBRARIES <libraries>)
# One test program per room.
function(lomaris_test name)
  cmake_parse_arguments(ARG "" "FOLDER" "ROOMS;LIBRARIES" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/${ARG_FOLDER}/*.cpp)
  add_executable(${name} ${sources})
  list(TRANSFORM ARG_ROOMS PREPEND lomaris_)
  target_link_libraries(${name} PRIVATE ${ARG_ROOMS} ${ARG_LIBRARIES} lomaris_test_support)
  gtest_discover_tests(${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
