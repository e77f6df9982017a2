# Makes the service's user and hands it the devices, as the installed files of systemd and udev say.
function(run_or_tell)
  list(JOIN ARGN " " command)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE code ERROR_VARIABLE reason)
  if(NOT code EQUAL 0)
    string(STRIP "${reason}" reason)
    message(WARNING "`bmci2c serve` as a service needs '${command}', which failed: ${code} ${reason}")
  endif()
endfunction()

run_or_tell(systemd-sysusers "${CMAKE_INSTALL_PREFIX}/lib/sysusers.d/bmci2c.conf")
run_or_tell(udevadm control --reload)
run_or_tell(udevadm trigger --subsystem-match=ipmi)
