# Debian packages (cpack -G DEB in a build folder), one per component:
#   headunit-sdk   the stand-in host SDK: libraries, headers, CMake package
#   radio-activity the radio plugin in the host's activities folder
#   radio-demo     the tuner simulator, the head-unit shell and the
#                  Wireshark dissector for link captures
# The architecture is the target's, so a cross build makes arm64 packages.
# A Qt 6 build makes the same three with "-qt6" appended to their names.
# A head unit runs one Qt major, so both install the same paths: each
# package conflicts with its counterpart of the other major.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME radio-screen)
set(CPACK_PACKAGE_VENDOR "Radio screen maintainers")
set(CPACK_PACKAGE_CONTACT "Radio screen maintainers <maintainers@users.noreply.c-seed-4799ea96.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_STRIP_FILES ON)

if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(aarch64|arm64)$")
    set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE arm64)
elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|amd64)$")
    set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE amd64)
endif()

if(RADIO_QT_MAJOR EQUAL 6)
    set(radio_suffix -qt6)
    set(radio_other_suffix "")
    set(radio_qt_depends "libqt6core6 (>= 6.4), libqt6gui6 (>= 6.4), libqt6widgets6 (>= 6.4), libstdc++6, libc6")
    set(radio_qt_dev qt6-base-dev)
else()
    set(radio_suffix "")
    set(radio_other_suffix -qt6)
    set(radio_qt_depends "libqt5core5a (>= 5.15), libqt5gui5 (>= 5.15), libqt5widgets5 (>= 5.15), libstdc++6, libc6")
    set(radio_qt_dev qtbase5-dev)
endif()
set(radio_version "${PROJECT_VERSION}")
set(radio_package_HOSTSDK headunit-sdk)
set(radio_package_PLUGIN radio-activity)
set(radio_package_DEMO radio-demo)
foreach(component HOSTSDK PLUGIN DEMO)
    set(CPACK_DEBIAN_${component}_PACKAGE_NAME ${radio_package_${component}}${radio_suffix})
    set(CPACK_DEBIAN_${component}_PACKAGE_CONFLICTS ${radio_package_${component}}${radio_other_suffix})
endforeach()

set(CPACK_DEBIAN_HOSTSDK_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_HOSTSDK_PACKAGE_DEPENDS "${radio_qt_depends}")
set(CPACK_DEBIAN_HOSTSDK_PACKAGE_SUGGESTS "${radio_qt_dev}")
set(CPACK_DEBIAN_HOSTSDK_DESCRIPTION "Stand-in head-unit SDK
The host libraries (appframework, apis, comwidgets, comviews, setupviews,
radiomodule), their headers and the CMake package HeadUnitSDK.")

set(CPACK_DEBIAN_PLUGIN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PLUGIN_DESCRIPTION "Radio activity for the head unit
The FM/AM radio screen, an activity plugin (activity/0.1) for the head
unit's activity framework.")

set(CPACK_DEBIAN_DEMO_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_DEMO_PACKAGE_DEPENDS
    "radio-activity${radio_suffix} (= ${radio_version}), headunit-sdk${radio_suffix} (= ${radio_version}), ${radio_qt_depends}, libpcap0.8 (>= 1.10)")
set(CPACK_DEBIAN_DEMO_PACKAGE_SUGGESTS "wireshark | tshark")
set(CPACK_DEBIAN_DEMO_DESCRIPTION "Radio screen demo
The tuner service simulator (radio-tunersim), the head-unit shell
(radio-headunit) that runs the radio screen on a desktop, and the
Wireshark dissector for captures of the tuner link (RADIO_CAPTURE).")

if(RADIO_PLUGIN_ONLY)
    # The host tree built against provides the SDK.
    set(CPACK_COMPONENTS_ALL plugin)
    set(CPACK_DEBIAN_PLUGIN_PACKAGE_DEPENDS "${radio_qt_depends}")
else()
    set(CPACK_COMPONENTS_ALL hostsdk plugin demo)
    set(CPACK_DEBIAN_PLUGIN_PACKAGE_DEPENDS "headunit-sdk${radio_suffix} (= ${radio_version}), ${radio_qt_depends}")
endif()

include(CPack)
