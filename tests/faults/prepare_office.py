#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the office on a server that the tests of faults work on: both schemas by the real program, a user, two persons."""

import rig
from rig.fault import check, run, step


def prepare(office):
    office.open_empty()
    step("first start")
    status = office.program("--quit-after-login-shown").wait(60)
    check(status == 0, f"the first start ended with {status}: {office.program_logs()}")
    step("a user and two persons")
    desk = office.desk(user=None)
    desk.do("office", rig.CLERK)
    for name, family in (("سعید", "رضایی"), ("مریم", "کریمی")):
        desk.do("person", name, family)
    desk.leave()
    office.database.rows("INSERT INTO Users(sUser,sPasswordHash,sName,iStatus,bAdmin) "
                         f"SELECT '{rig.OTHER_CLERK}',sPasswordHash,'{rig.OTHER_CLERK}',0,1 FROM Users")
    step("what the search finds them by")
    status = office.program("--rebuild-search").wait(60)
    check(status == 0, f"the search was not built, {status}: {office.program_logs()}")
    office.leave_office()
    return "prepared"


if __name__ == "__main__":
    run(prepare, __doc__)
