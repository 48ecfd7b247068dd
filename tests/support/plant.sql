-- A company on the small catalogue: three groups, one of them empty; an instrument named like a group; values equal to
-- the instrument's, changed, added and unknown.
BEGIN;
INSERT INTO tbGroupsUser VALUES
 (1, 'GRP1', 'Market "North"', '0551234567'), (2, 'ALPHA', NULL, NULL), (3, 'O''Hara', 'Empty', '');
INSERT INTO tbInstrumentsUser VALUES
 (1, 1, 'KT100', 'INST11', 'KT100', '00'), (1, 2, 'KT200', 'ALPHA', 'Second', '2A'), (2, 1, 'KT200', 'inst21', NULL, NULL);
INSERT INTO tbParametersUser (IDGrp, IDInst, IDPar, IDParGrp, Value, State)
 SELECT tbInstrumentsUser.IDGrp, tbInstrumentsUser.IDInst, tbParam.mID, tbParam.mKeyParGroup, tbParam.mDftValue, 0
 FROM tbInstrumentsUser, tbInstrument, tbParamGroup, tbParam
 WHERE tbInstrumentsUser.IDItem = tbInstrument.mTag AND tbInstrument.mID = tbParamGroup.mKeyInst
   AND tbParamGroup.mID = tbParam.mKeyParGroup;
INSERT INTO tbUsers (IDUser, Name, State, Password, UpgradeDb, Settings, Modify, EventViewer, ReadWrite) VALUES
 ('0', 'ADMINISTRATOR', 0, NULL, 0, 0, 0, 0, 0), ('1', 'TECHNICIAN', 0, NULL, -1, -1, -1, -1, -1),
 ('2', 'GUEST', 0, 'Secret', 0, 0, 0, 0, 0), ('3', 'FORMER', 1, NULL, -1, -1, -1, -1, -1);
UPDATE tbParametersUser SET State = 1 WHERE IDPar IN ('P0201', 'P1101');
UPDATE tbParametersUser SET State = 2, Value = '0' WHERE IDPar IN ('P0203', 'P1103');
UPDATE tbParametersUser SET Value = NULL WHERE IDPar = 'P0102';
COMMIT;
