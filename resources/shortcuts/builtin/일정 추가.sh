#!/bin/sh
# Makes a calendar entry of the text, at the date and time that it names, and hands it to the
# calendar.
exec tessel-calendar-entry
